// The application object and its login item.
#include "controls/Menus.h"
#include "loop/MainLoop.h"
#include "windows/Windows.h"

#import <ServiceManagement/ServiceManagement.h>

#include <cstdlib>
#include <utility>

using substitute::raise;

NSApplication* NSApp;
@implementation NSApplication {
    id __weak _delegate;
    NSApplicationActivationPolicy _policy;
    bool _ends, _launched;
}
+ (NSApplication*)sharedApplication
{
    if (!NSApp)
        NSApp = [[NSApplication alloc] init];
    return NSApp;
}
- (void)setDelegate:(id)delegate
{
    _delegate = delegate;
}
- (id)delegate
{
    return _delegate;
}
- (BOOL)setActivationPolicy:(NSApplicationActivationPolicy)policy
{
    _policy = policy;
    return YES;
}
- (void)activateIgnoringOtherApps:(BOOL)v
{
}
- (void)finishLaunching
{
    if (std::exchange(_launched, true))
        return;
    id d = _delegate;
    if ([d respondsToSelector:@selector(applicationDidFinishLaunching:)])
        [d applicationDidFinishLaunching:(NSNotification*)[[NSNotification alloc] init]];
}
- (NSWindow*)keyWindow
{
    return substitute::keyWindow;
}
- (NSWindow*)mainWindow
{
    return substitute::keyWindow;
}
- (void)run
{
    [self finishLaunching];
    while (!_ends)
        substitute::turn(NSDefaultRunLoopMode, substitute::now() + 1);
}
- (void)terminate:(id)sender
{
    id d = _delegate;
    if ([d respondsToSelector:@selector(applicationWillTerminate:)])
        [d applicationWillTerminate:(NSNotification*)[[NSNotification alloc] init]];
    std::exit(0);
}
- (NSImage*)applicationIconImage
{
    return [[NSImage alloc] init];
}
- (void)orderFrontStandardAboutPanelWithOptions:(NSDictionary*)options
{
}
@end

@implementation SMAppService
+ (SMAppService*)mainAppService
{
    static SMAppService* const one = [[SMAppService alloc] init];
    return one;
}
- (SMAppServiceStatus)status
{
    return SMAppServiceStatusNotRegistered;
}
- (BOOL)registerAndReturnError:(NSError**)e
{
    return YES;
}
- (BOOL)unregisterAndReturnError:(NSError**)e
{
    return YES;
}
@end
