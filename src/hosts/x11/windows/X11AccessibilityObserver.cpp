#include "hosts/x11/windows/X11AccessibilityObserver.h"

#include "hosts/x11/windows/X11Accessibility.h"
#include "platform/AccessibilityNames.h"

#include <algorithm>
#include <utility>

namespace haloric {

namespace {

std::string_view notificationFor(X11ClientChange change)
{
    switch (change) {
    case X11ClientChange::appeared:
        return AXNotifications::kWindowCreated;
    case X11ClientChange::vanished:
        return AXNotifications::kElementDestroyed;
    case X11ClientChange::moved:
        return AXNotifications::kWindowMoved;
    case X11ClientChange::resized:
    case X11ClientChange::redecorated: // makes the tracker measure the title bar again
        return AXNotifications::kWindowResized;
    case X11ClientChange::minimised:
        return AXNotifications::kWindowMiniaturized;
    case X11ClientChange::restored:
        return AXNotifications::kWindowDeminiaturized;
    case X11ClientChange::otherwise:
        break;
    }
    return AXNotifications::kFocusedElementChanged;
}

} // namespace

X11AccessibilityObserver::X11AccessibilityObserver(RunLoop& runLoop, X11Clients& clients, ProcessID pid,
                                                   Accessibility::ObserverCallback callback)
    : m_runLoop(runLoop),
      m_clients(clients),
      m_pid(pid),
      m_callback(std::move(callback)),
      m_isHidden(clients.table().isHidden(pid))
{
    const X11Client* main = clients.table().mainWindow(pid);
    m_focused = main ? main->window : xcb_window_t{XCB_WINDOW_NONE};
    listen();
}

void X11AccessibilityObserver::listen()
{
    m_notices = m_clients.onNotice([this](const X11ClientNotice& notice) {
        if (notice.pid == m_pid)
            note(notificationFor(notice.change));
    });
    m_passes = m_clients.onPass([this] { compareState(); });
}

AXError X11AccessibilityObserver::addNotification(const AXElement& element, std::string_view name)
{
    const auto* target = dynamic_cast<const X11AccessibilityElement*>(element.get());
    if (!target || target->kind() != X11AccessibilityElement::Kind::application || target->pid() != m_pid)
        return AXError::invalidElement;
    if (std::ranges::find(AXNotifications::kObserved, name) == AXNotifications::kObserved.end())
        return AXError::notificationUnsupported;
    m_names.emplace_back(name);
    return AXError::success;
}

void X11AccessibilityObserver::addToMainRunLoop()
{
    if (m_state == State::removed)
        listen();
    m_state = State::installed;
    m_firstReport = m_runLoop.scheduleOnce(Seconds(0), [this] { reportPending(); });
}

void X11AccessibilityObserver::removeFromMainRunLoop()
{
    m_state = State::removed;
    m_notices.reset();
    m_passes.reset();
    m_firstReport.reset();
    m_pending.clear();
}

void X11AccessibilityObserver::note(std::string_view name)
{
    if (m_state == State::installed && m_pending.empty())
        report(name);
    else if (std::ranges::find(m_pending, name) == m_pending.end())
        m_pending.push_back(name); // in their order
}

void X11AccessibilityObserver::reportPending()
{
    const auto self = m_anchor.ref();
    for (const std::string_view name : std::exchange(m_pending, {})) {
        if (!self.get())
            return;
        report(name);
    }
}

// The callback may release this observer: it is copied, and nothing is touched after the call.
void X11AccessibilityObserver::report(std::string_view name) const
{
    if (m_state != State::installed || std::ranges::find(m_names, name) == m_names.end())
        return;
    const auto callback = m_callback;
    callback(name);
}

void X11AccessibilityObserver::compareState()
{
    const X11ClientTable& clients = m_clients.table();
    const X11Client* active = clients.active();
    const bool hasOtherFocus =
        active && active->pid == m_pid && std::exchange(m_focused, active->window) != active->window;
    const bool isHidden = clients.isHidden(m_pid);
    const bool hasOtherVisibility = std::exchange(m_isHidden, isHidden) != isHidden;

    const auto self = m_anchor.ref();
    if (hasOtherFocus)
        note(AXNotifications::kFocusedWindowChanged);
    if (hasOtherVisibility && self.get())
        note(isHidden ? AXNotifications::kApplicationHidden : AXNotifications::kApplicationShown);
}

} // namespace haloric
