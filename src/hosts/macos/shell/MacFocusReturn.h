// Gives the focus back to the application that was in front before, once the last of the program's own windows is
// closed. An accessory application without windows would keep the focus, and nothing would be highlighted. Main thread.
#pragma once

#include "foundation/Subscription.h"
#include "foundation/WeakAnchor.h"

#import <AppKit/AppKit.h>

namespace haloric {

// Posted to the default centre when an alert has ended: AppKit orders alerts out without closing them.
extern NSNotificationName const kMacAlertDidEnd;

class MacFocusReturn final {
public:
    MacFocusReturn();

private:
    void rememberFrontmost();
    void giveBack() const;
    void giveBackLater() const;

    NSRunningApplication* m_previous = nil; // the last other application in front
    Subscription m_activations;
    Subscription m_closings;
    Subscription m_alerts;
    WeakAnchor<MacFocusReturn> m_anchor{*this};
};

} // namespace haloric
