#include "hosts/sim/desktop/SimWindowVerbs.h"

#include "foundation/ScreenChoice.h"
#include "platform/AccessibilityNames.h"

#include <utility>

namespace haloric {

SimWindow& SimWindowVerbs::open(const SimApp& app, SimWindow window)
{
    window.owner = app.pid;
    window.space = m_model.activeSpace;
    SimWindow& opened = m_model.windows.add(std::move(window));
    m_notifier.postAccessibility(app.pid, AXNotifications::kWindowCreated);
    m_focus.setFocused(*m_model.app(app.pid), &opened);
    m_notifier.postVanished();
    return opened;
}

void SimWindowVerbs::close(SimWindow& window)
{
    const auto origin = window.fullScreenOrigin;
    const SimSpaceID space = window.space;
    const ProcessID owner = window.owner;
    if (window.whenClosed)
        window.whenClosed(window);
    m_notifier.postWindowServer(WindowServerEvent::destroyed, window.number);
    m_model.windows.remove(window.number);
    m_notifier.postAccessibility(owner, AXNotifications::kElementDestroyed);
    m_focus.settle();
    if (origin && space == m_model.activeSpace)
        m_spaces.switchTo(origin->space);
    m_notifier.postVanished();
}

void SimWindowVerbs::focus(SimWindow& window)
{
    if (window.minimised)
        restore(window);
    SimApp& owner = *m_model.app(window.owner);
    if (std::exchange(owner.hidden, false))
        m_notifier.postAccessibility(owner.pid, AXNotifications::kApplicationShown);
    m_model.windows.raise(window.number);
    m_spaces.switchTo(window.space);
    m_focus.setFocused(owner, &window);
    m_focus.setFrontmost(&owner);
    m_notifier.postVanished();
}

void SimWindowVerbs::setFrame(SimWindow& window, const Rect& frame)
{
    const Rect old = std::exchange(window.frame, frame);
    if (old.origin() != frame.origin()) {
        m_notifier.postWindowServer(WindowServerEvent::moved, window.number);
        m_notifier.postAccessibility(window.owner, AXNotifications::kWindowMoved);
    }
    if (old.size() != frame.size()) {
        m_notifier.postWindowServer(WindowServerEvent::resized, window.number);
        m_notifier.postAccessibility(window.owner, AXNotifications::kWindowResized);
    }
}

void SimWindowVerbs::minimise(SimWindow& window)
{
    if (window.minimised)
        return;
    leaveFullScreen(window);
    window.minimised = true;
    m_notifier.postAccessibility(window.owner, AXNotifications::kWindowMiniaturized);
    m_focus.settle();
    m_notifier.postVanished();
}

void SimWindowVerbs::restore(SimWindow& window)
{
    if (!std::exchange(window.minimised, false))
        return;
    window.space = m_model.activeSpace;
    m_notifier.postAccessibility(window.owner, AXNotifications::kWindowDeminiaturized);
    focus(window);
}

void SimWindowVerbs::enterFullScreen(SimWindow& window)
{
    const SimScreen* screen = screenHoldingMost(window.frame, m_model.screens);
    if (window.fullScreenOrigin || window.minimised || !screen)
        return;
    window.fullScreenOrigin = {window.frame, window.space};
    window.space = m_spaces.makeSpace();
    setFrame(window, screen->frame);
    focus(window);
}

void SimWindowVerbs::leaveFullScreen(SimWindow& window)
{
    if (!window.fullScreenOrigin)
        return;
    const auto origin = *std::exchange(window.fullScreenOrigin, std::nullopt);
    const bool wasOnScreen = window.space == m_model.activeSpace;
    window.space = origin.space;
    setFrame(window, origin.frame);
    if (wasOnScreen)
        m_spaces.switchTo(origin.space);
    m_notifier.postVanished();
}

void SimWindowVerbs::setDecoration(SimWindow& window, SimDecoration decoration, double titleBarHeight)
{
    window.decoration = decoration;
    window.titleBarHeight = titleBarHeight;
    // Title bars change with the style of a window, which applications report as a resize.
    m_notifier.postAccessibility(window.owner, AXNotifications::kWindowResized);
}

} // namespace haloric
