#include "hosts/macos/shell/MacFocusReturn.h"

#include "hosts/macos/base/MacNotifications.h"
#include "hosts/macos/base/OwnPool.h"

namespace haloric {

NSNotificationName const kMacAlertDidEnd = @"HaloricAlertDidEnd";

namespace {

// Windows that the user can close have a title bar; overlays and the status item have none.
bool hasOpenWindow()
{
    for (NSWindow* window in NSApp.windows)
        if (window.visible && (window.styleMask & NSWindowStyleMaskTitled) != 0)
            return true;
    return false;
}

void activate(NSRunningApplication* application)
{
    if (@available(macOS 14.0, *)) {
        [NSApp yieldActivationToApplication:application];
        [application activateFromApplication:NSRunningApplication.currentApplication options:0];
    } else {
        [application activateWithOptions:0];
    }
}

} // namespace

MacFocusReturn::MacFocusReturn()
{
    rememberFrontmost();
    m_activations = observeNotification(NSWorkspace.sharedWorkspace.notificationCenter,
                                        NSWorkspaceDidActivateApplicationNotification,
                                        m_anchor.bind(&MacFocusReturn::rememberFrontmost));
    NSNotificationCenter* center = NSNotificationCenter.defaultCenter;
    const auto closed = m_anchor.bind(&MacFocusReturn::giveBackLater);
    m_closings = observeNotification(center, NSWindowWillCloseNotification, closed);
    m_alerts = observeNotification(center, kMacAlertDidEnd, closed);
}

void MacFocusReturn::rememberFrontmost()
{
    NSRunningApplication* frontmost = NSWorkspace.sharedWorkspace.frontmostApplication;
    if (frontmost && frontmost.processIdentifier != NSProcessInfo.processInfo.processIdentifier)
        m_previous = frontmost;
}

// A window that closes is still visible when it is announced, and another one may open in the same turn.
void MacFocusReturn::giveBackLater() const
{
    const Task later = m_anchor.bind(&MacFocusReturn::giveBack);
    dispatch_async(dispatch_get_main_queue(), ^{
      withOwnPool(later);
    });
}

void MacFocusReturn::giveBack() const
{
    if (NSApp.active && !hasOpenWindow() && m_previous && !m_previous.terminated)
        activate(m_previous);
}

} // namespace haloric
