#include "hosts/macos/shell/MacApplication.h"

#include "hosts/macos/base/MacConversions.h"
#include "hosts/macos/overlay/MacOverlayWindow.h"
#include "hosts/macos/shell/MacMainMenu.h"

// The application's delegate as AppKit expects it. Passes each event on.
@interface MacApplicationDelegate : NSObject <NSApplicationDelegate>

// Events go here while it is not null.
@property(nonatomic, assign) haloric::ApplicationDelegate* receiver;

@end

@implementation MacApplicationDelegate

- (void)applicationDidFinishLaunching:(NSNotification*)__unused notification
{
    if (self.receiver)
        self.receiver->applicationDidFinishLaunching();
}

- (BOOL)applicationShouldHandleReopen:(NSApplication*)__unused sender hasVisibleWindows:(BOOL)hasVisibleWindows
{
    return !self.receiver || self.receiver->applicationShouldHandleReopen(hasVisibleWindows);
}

- (void)applicationWillTerminate:(NSNotification*)__unused notification
{
    if (self.receiver)
        self.receiver->applicationWillTerminate();
}

// Nothing is saved or restored; macOS asks, and logs a warning without an answer.
- (BOOL)applicationSupportsSecureRestorableState:(NSApplication*)__unused application
{
    return YES;
}

@end

namespace haloric {
namespace {

static_assert(NSApplicationActivationPolicyAccessory == static_cast<NSInteger>(ActivationPolicy::accessory));

// Without it App Nap delays the timers of an application that shows no window of its own. The Mac may still sleep.
id<NSObject> beginActivity()
{
    return [NSProcessInfo.processInfo beginActivityWithOptions:NSActivityUserInitiatedAllowingIdleSystemSleep
                                                        reason:@"Follows the focused window"];
}

std::optional<OwnWindow> ownWindow(NSWindow* window)
{
    if (!window)
        return std::nullopt;
    return OwnWindow{
        .frame = rectFrom(window.frame),
        .contentLayoutHeight = window.contentLayoutRect.size.height,
        .number = window.windowNumber,
        .visible = static_cast<bool>(window.visible),
        .overlay = static_cast<bool>([window isKindOfClass:MacOverlayWindow.class]),
    };
}

} // namespace

MacApplication::MacApplication()
    : m_application(NSApplication.sharedApplication),
      m_delegate([[MacApplicationDelegate alloc] init]),
      m_activity(beginActivity())
{
    m_application.mainMenu = makeMainMenu();
}

MacApplication::~MacApplication() { [NSProcessInfo.processInfo endActivity:m_activity]; }

void MacApplication::setDelegate(ApplicationDelegate* delegate)
{
    m_delegate.receiver = delegate;
    m_application.delegate = m_delegate;
}

void MacApplication::setActivationPolicy(ActivationPolicy policy)
{
    [m_application setActivationPolicy:static_cast<NSApplicationActivationPolicy>(policy)];
}

void MacApplication::activateIgnoringOtherApps() { [m_application activateIgnoringOtherApps:YES]; }

void MacApplication::run() { [m_application run]; }

void MacApplication::terminate() { [m_application terminate:nil]; }

ProcessID MacApplication::processID() const { return ProcessID{NSProcessInfo.processInfo.processIdentifier}; }

std::optional<OwnWindow> MacApplication::keyWindow() const { return ownWindow(m_application.keyWindow); }

std::optional<OwnWindow> MacApplication::mainWindow() const { return ownWindow(m_application.mainWindow); }

} // namespace haloric
