#import "hosts/macos/MacApplicationDelegate.h"

@implementation MacApplicationDelegate

- (void)applicationDidFinishLaunching:(NSNotification*)__unused notification
{
    if (self.receiver)
        self.receiver->applicationDidFinishLaunching();
}

- (void)applicationWillTerminate:(NSNotification*)__unused notification
{
    if (self.receiver)
        self.receiver->applicationWillTerminate();
}

@end
