#import "hosts/macos/shell/MacApplicationDelegate.h"

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

@end
