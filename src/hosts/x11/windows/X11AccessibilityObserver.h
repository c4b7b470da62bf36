// Reports the Accessibility notifications of one process, made from the changes of its windows, after the table of
// clients has been brought up to date. Main thread.
//
// A change of focus is one notification, "AXFocusedWindowChanged": on X11 the focused window and the main window of the
// active application are the same, and "AXMainWindowChanged" would only repeat the query. What happens between the
// construction and the installation is reported on the turn of the loop after the installation, each name once.
#pragma once

#include "foundation/Subscription.h"
#include "foundation/WeakAnchor.h"
#include "hosts/x11/windows/X11Clients.h"
#include "platform/Accessibility.h"
#include "platform/RunLoop.h"

#include <string>
#include <string_view>
#include <vector>

namespace haloric {

class X11AccessibilityObserver final : public AXObserver {
public:
    // The loop and the clients outlive it.
    X11AccessibilityObserver(RunLoop& runLoop, X11Clients& clients, ProcessID pid,
                             Accessibility::ObserverCallback callback);

    AXError addNotification(const AXElement& element, std::string_view name) override;
    void addToMainRunLoop() override;
    void removeFromMainRunLoop() override;

private:
    enum class State { notInstalled, installed, removed };

    void listen();
    void note(std::string_view name);
    void report(std::string_view name) const;
    void reportPending();
    void compareState();

    RunLoop& m_runLoop;
    X11Clients& m_clients;
    ProcessID m_pid;
    Accessibility::ObserverCallback m_callback;
    std::vector<std::string> m_names; // of the notifications that were added
    State m_state = State::notInstalled;
    std::vector<std::string_view> m_pending; // noted before the installation, and not reported yet
    xcb_window_t m_focused;                  // the window of the process that was active last
    bool m_isHidden;
    Subscription m_notices;
    Subscription m_passes;
    Subscription m_firstReport;
    WeakAnchor<X11AccessibilityObserver> m_anchor{*this};
};

} // namespace haloric
