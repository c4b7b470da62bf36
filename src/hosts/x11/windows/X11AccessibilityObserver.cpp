#include "hosts/x11/windows/X11AccessibilityObserver.h"

#include "hosts/x11/windows/X11AccessibilityElement.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>
#include <vector>

namespace haloric {

namespace {

constexpr std::array<std::string_view, 11> kNotifications{
    "AXFocusedWindowChanged", "AXMainWindowChanged",      "AXWindowMoved",
    "AXWindowResized",        "AXWindowMiniaturized",     "AXWindowDeminiaturized",
    "AXWindowCreated",        "AXUIElementDestroyed",     "AXApplicationHidden",
    "AXApplicationShown",     "AXFocusedUIElementChanged"};

std::string_view notificationFor(X11ClientChange change)
{
    switch (change) {
    case X11ClientChange::appeared:
        return "AXWindowCreated";
    case X11ClientChange::vanished:
        return "AXUIElementDestroyed";
    case X11ClientChange::moved:
        return "AXWindowMoved";
    case X11ClientChange::resized:
    case X11ClientChange::redecorated: // has the title bar measured again
        return "AXWindowResized";
    case X11ClientChange::minimised:
        return "AXWindowMiniaturized";
    case X11ClientChange::restored:
        return "AXWindowDeminiaturized";
    case X11ClientChange::otherwise:
        break;
    }
    return "AXFocusedUIElementChanged";
}

} // namespace

struct X11AccessibilityObserver::Delivery {
    ProcessID pid;
    Accessibility::ObserverCallback callback;
    std::vector<std::string> names; // complete before the observer is put on the run loop
    bool isOnRunLoop = false;
    xcb_window_t focused = XCB_WINDOW_NONE; // the window of the process that was active last
    bool isHidden = false;

    void tell(std::string_view name) const
    {
        if (isOnRunLoop && std::ranges::find(names, name) != names.end())
            callback(name);
    }

    void takeIn(const X11ClientTable& clients)
    {
        const auto active = clients.active();
        if (active && active->pid == pid && std::exchange(focused, active->window) != active->window) {
            tell("AXFocusedWindowChanged");
            tell("AXMainWindowChanged");
        }
        const bool nowHidden = clients.isHidden(pid);
        if (std::exchange(isHidden, nowHidden) != nowHidden)
            tell(nowHidden ? "AXApplicationHidden" : "AXApplicationShown");
    }
};

X11AccessibilityObserver::X11AccessibilityObserver(RunLoop& runLoop, X11Clients& clients, ProcessID pid,
                                                   Accessibility::ObserverCallback callback)
    : m_runLoop(runLoop),
      m_clients(clients),
      m_delivery(std::make_shared<Delivery>())
{
    m_delivery->pid = pid;
    m_delivery->callback = std::move(callback);
    const auto main = clients.table().mainWindow(pid);
    m_delivery->focused = main ? main->window : xcb_window_t{XCB_WINDOW_NONE};
    m_delivery->isHidden = clients.table().isHidden(pid);
}

X11AccessibilityObserver::~X11AccessibilityObserver() = default;

AXError X11AccessibilityObserver::addNotification(const AXElement& element, std::string_view name)
{
    const auto* target = dynamic_cast<const X11AccessibilityElement*>(element.get());
    if (!target || target->kind() != X11AccessibilityElement::Kind::application || target->pid() != m_delivery->pid)
        return AXError::invalidElement;
    if (std::ranges::find(kNotifications, name) == kNotifications.end())
        return AXError::notificationUnsupported;
    m_delivery->names.emplace_back(name);
    return AXError::success;
}

void X11AccessibilityObserver::addToMainRunLoop()
{
    m_delivery->isOnRunLoop = true;
    m_notices = m_clients.onNotice([delivery = m_delivery](const X11ClientNotice& notice) {
        if (notice.pid == delivery->pid)
            delivery->tell(notificationFor(notice.change));
    });
    const auto compare = [delivery = m_delivery, &clients = m_clients] { delivery->takeIn(clients.table()); };
    m_passes = m_clients.onPass(compare);
    // The focus may have changed since this was made, and the next pass may be far off.
    m_firstComparison = m_runLoop.scheduleOnce(Seconds(0), compare);
}

void X11AccessibilityObserver::removeFromMainRunLoop()
{
    m_delivery->isOnRunLoop = false;
    m_notices.reset();
    m_passes.reset();
    m_firstComparison.reset();
}

} // namespace haloric
