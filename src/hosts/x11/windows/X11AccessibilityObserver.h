// Tells the Accessibility notifications of one process, made out of what happens to its windows: each change under
// its notification's name, after the table of clients has been brought up to date.
//
// Made and released on the Accessibility queue; everything else happens on the main thread while it is on the main
// run loop. A delivery that is under way keeps what it uses, so the observer may be taken off and released meanwhile.
// A change of the focus between the making and the installation is told on the next turn of the loop.
#pragma once

#include "foundation/Subscription.h"
#include "hosts/x11/windows/X11Clients.h"
#include "platform/Accessibility.h"
#include "platform/RunLoop.h"

#include <memory>

namespace haloric {

class X11AccessibilityObserver final : public AXObserver {
public:
    // The loop and the clients outlive it.
    X11AccessibilityObserver(RunLoop& runLoop, X11Clients& clients, ProcessID pid,
                             Accessibility::ObserverCallback callback);
    ~X11AccessibilityObserver() override;

    AXError addNotification(const AXElement& element, std::string_view name) override;
    void addToMainRunLoop() override;
    void removeFromMainRunLoop() override;

private:
    struct Delivery;

    RunLoop& m_runLoop;
    X11Clients& m_clients;
    std::shared_ptr<Delivery> m_delivery;
    Subscription m_notices;
    Subscription m_passes;
    Subscription m_firstComparison;
};

} // namespace haloric
