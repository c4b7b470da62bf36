// The workspace, its applications, and the screens.
#include "foundation/Balance.h"
#include "loop/DisplayLinks.h"
#include "loop/MainLoop.h"
#include "windows/Windows.h"
#include "world/World.h"

#import <AppKit/AppKit.h>
#import <QuartzCore/QuartzCore.h>

#include <algorithm>
#include <utility>

#include <unistd.h>

using substitute::raise;
using substitute::text;
using substitute::World;
using Lock = std::lock_guard<std::recursive_mutex>;

NSNotificationName const NSWorkspaceDidActivateApplicationNotification =
    @"NSWorkspaceDidActivateApplicationNotification";
NSNotificationName const NSWorkspaceDidTerminateApplicationNotification =
    @"NSWorkspaceDidTerminateApplicationNotification";
NSNotificationName const NSWorkspaceActiveSpaceDidChangeNotification = @"NSWorkspaceActiveSpaceDidChangeNotification";
NSNotificationName const NSWorkspaceScreensDidWakeNotification = @"NSWorkspaceScreensDidWakeNotification";
NSNotificationName const NSApplicationDidChangeScreenParametersNotification =
    @"NSApplicationDidChangeScreenParametersNotification";

namespace substitute {
int yieldedTo;
bool activate(int pid)
{
    World& world = World::the();
    const Lock guard(world.lock);
    if (pid != getpid() && !world.applications.contains(pid))
        return false;
    yieldedTo = 0;
    const Window* window = world.firstOf(pid);
    world.activate(pid, window ? window->number : 0);
    return true;
}
} // namespace substitute

@implementation NSRunningApplication {
@public
    int _pid;
}
+ (instancetype)runningApplicationWithProcessIdentifier:(pid_t)pid
{
    if (!World::the().applications.contains(pid))
        return nil;
    NSRunningApplication* made = [[NSRunningApplication alloc] init];
    made->_pid = pid;
    return made;
}
+ (NSRunningApplication*)currentApplication
{
    NSRunningApplication* made = [[NSRunningApplication alloc] init];
    made->_pid = getpid();
    return made;
}
- (pid_t)processIdentifier
{
    return _pid;
}
- (BOOL)isTerminated
{
    return _pid != getpid() && !World::the().applications.contains(_pid);
}
// NSRunningApplication activateWithOptions: asks; without "all windows" only the main and the key window come forward.
- (BOOL)activateWithOptions:(NSApplicationActivationOptions)options
{
    return substitute::activate(_pid);
}
// NSRunningApplication activateFromApplication:options: works for the application that the active one has yielded to.
- (BOOL)activateFromApplication:(NSRunningApplication*)application options:(NSApplicationActivationOptions)options
{
    if (application->_pid != World::the().frontmost || substitute::yieldedTo != _pid)
        return NO;
    return substitute::activate(_pid);
}
- (BOOL)isHidden
{
    return World::the().applications[_pid];
}
- (NSString*)bundleIdentifier
{
    return text("application." + std::to_string(_pid));
}
- (NSApplicationActivationPolicy)activationPolicy
{
    return NSApplicationActivationPolicyRegular;
}
@end
@implementation NSWorkspace {
    NSNotificationCenter* _center;
}
+ (NSWorkspace*)sharedWorkspace
{
    static NSWorkspace* const one = substitute::permanent([] { return [[NSWorkspace alloc] init]; });
    return one;
}
- (NSNotificationCenter*)notificationCenter
{
    if (!_center)
        _center = substitute::permanent([] { return [[NSNotificationCenter alloc] init]; });
    return _center;
}
- (NSArray*)runningApplications
{
    ++substitute::questions()["runningApplications"];
    NSMutableArray* all = [NSMutableArray array];
    for (const auto& [pid, hidden] : World::the().applications)
        [all addObject:[NSRunningApplication runningApplicationWithProcessIdentifier:pid]];
    return all;
}
- (NSURL*)URLForApplicationWithBundleIdentifier:(NSString*)identifier
{
    ++substitute::questions()["URLForApplicationWithBundleIdentifier:"];
    return nil;
}
- (NSImage*)iconForFile:(NSString*)path
{
    return [[NSImage alloc] init];
}
- (BOOL)openURL:(NSURL*)url
{
    substitute::openedURLs().push_back([url.absoluteString _utf8]);
    return YES;
}
- (NSRunningApplication*)frontmostApplication
{
    return [NSRunningApplication runningApplicationWithProcessIdentifier:World::the().frontmost];
}
@end

namespace substitute {
std::vector<Display> displays{{1, {{0, 0}, {1440, 900}}, 2}, {2, {{1440, 0}, {800, 600}}, 1}};
bool knowsDisplay(unsigned number)
{
    return std::ranges::count_if(displays, [&](const Display& d) { return d.number == number; }) > 0;
}
std::vector<std::string>& openedURLs()
{
    static auto* const all = new std::vector<std::string>;
    return *all;
}
// NSApplicationDidChangeScreenParametersNotification is posted once the arrangement of the screens has changed.
void setDisplays(std::vector<Display> arrangement)
{
    displays = std::move(arrangement);
    World& world = World::the();
    const double rise =
        displays.front().frame.size.height - std::exchange(world.height, displays.front().frame.size.height);
    for (NSWindow* window in windows())
        [window _primaryRose:rise];
    onMain([] {
        [NSNotificationCenter.defaultCenter postNotificationName:NSApplicationDidChangeScreenParametersNotification
                                                          object:nil];
    });
}
}
@implementation NSScreen {
@public
    substitute::Display _display;
}
+ (NSArray*)screens
{
    NSMutableArray* all = [NSMutableArray array];
    for (const auto& one : substitute::displays) {
        NSScreen* made = [[NSScreen alloc] init];
        made->_display = one;
        [all addObject:made];
    }
    return all;
}
- (NSRect)frame
{
    return _display.frame;
}
- (NSDictionary*)deviceDescription
{
    return @{@"NSScreenNumber" : @(_display.number)};
}
- (NSInteger)maximumFramesPerSecond
{
    return 60;
}
- (CGFloat)backingScaleFactor
{
    return _display.scale;
}
- (CADisplayLink*)displayLinkWithTarget:(id)target selector:(SEL)action
{
    return substitute::makeScreenLink(target, action);
}
@end
