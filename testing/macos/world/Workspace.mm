// The workspace, its applications, and the screens.
#include "platform/Workspace.h"
#include "foundation/Balance.h"
#include "loop/DisplayLinks.h"
#include "loop/MainLoop.h"
#include "platform/ApplicationCatalog.h"
#include "platform/Screens.h"
#include "windows/Windows.h"
#include "world/Backing.h"
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
int frontmostProcess()
{
    const Backing* behind = backing();
    if (!behind)
        return World::the().frontmost;
    const auto frontmost = behind->adapters.workspace.frontmostApplication();
    return frontmost ? static_cast<int>(frontmost->pid) : 0;
}
bool activate(int pid)
{
    if (const Backing* behind = backing())
        return behind->activate(haloric::ProcessID{pid});
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
    BOOL _behind, _hidden; // with a backing
    NSString* _identifier;
    NSApplicationActivationPolicy _policy;
}
+ (instancetype)_withIdentifier:(const std::optional<std::string>&)identifier
{
    NSRunningApplication* made = [[NSRunningApplication alloc] init];
    made->_behind = YES;
    made->_identifier = identifier ? text(*identifier) : nil;
    return made;
}
+ (instancetype)runningApplicationWithProcessIdentifier:(pid_t)pid
{
    if (const substitute::Backing* backing = substitute::backing()) {
        NSRunningApplication* made =
            [self _withIdentifier:backing->adapters.workspace.bundleIdentifier(haloric::ProcessID{pid})];
        made->_pid = pid;
        return made;
    }
    if (!World::the().applications.contains(pid))
        return nil;
    NSRunningApplication* made = [[NSRunningApplication alloc] init];
    made->_pid = pid;
    return made;
}
+ (NSRunningApplication*)currentApplication
{
    NSRunningApplication* made = [[NSRunningApplication alloc] init];
    made->_pid = NSProcessInfo.processInfo.processIdentifier;
    return made;
}
- (pid_t)processIdentifier
{
    return _pid;
}
- (BOOL)isTerminated
{
    if (const substitute::Backing* backing = substitute::backing())
        return !backing->isRunning(haloric::ProcessID{_pid});
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
    if (application->_pid != substitute::frontmostProcess() || substitute::yieldedTo != _pid)
        return NO;
    return substitute::activate(_pid);
}
- (BOOL)isHidden
{
    return _behind ? _hidden : World::the().applications[_pid];
}
- (NSString*)bundleIdentifier
{
    return _behind ? _identifier : text("application." + std::to_string(_pid));
}
- (NSApplicationActivationPolicy)activationPolicy
{
    return _policy;
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
    if (const substitute::Backing* backing = substitute::backing()) {
        for (const auto& one : backing->adapters.applicationCatalog.runningApplications()) {
            NSRunningApplication* running = [NSRunningApplication _withIdentifier:one.bundleIdentifier];
            running->_policy = static_cast<NSApplicationActivationPolicy>(one.activationPolicy);
            [all addObject:running];
        }
        return all;
    }
    for (const auto& [pid, hidden] : World::the().applications)
        [all addObject:[NSRunningApplication runningApplicationWithProcessIdentifier:pid]];
    return all;
}
- (NSURL*)URLForApplicationWithBundleIdentifier:(NSString*)identifier
{
    ++substitute::questions()["URLForApplicationWithBundleIdentifier:"];
    const substitute::Backing* backing = substitute::backing();
    const auto path = backing ? backing->adapters.applicationCatalog.applicationPath([identifier _utf8]) : std::nullopt;
    return path ? [NSURL fileURLWithPath:text(*path)] : nil;
}
- (NSImage*)iconForFile:(NSString*)path
{
    return [[NSImage alloc] init];
}
- (BOOL)openURL:(NSURL*)url
{
    if (const substitute::Backing* backing = substitute::backing())
        backing->adapters.workspace.openURL([url.absoluteString _utf8]);
    else
        substitute::openedURLs().push_back([url.absoluteString _utf8]);
    return YES;
}
- (NSRunningApplication*)frontmostApplication
{
    if (const substitute::Backing* backing = substitute::backing()) {
        const auto frontmost = backing->adapters.workspace.frontmostApplication();
        if (!frontmost)
            return nil;
        NSRunningApplication* made =
            [NSRunningApplication runningApplicationWithProcessIdentifier:static_cast<pid_t>(frontmost->pid)];
        made->_hidden = frontmost->hidden;
        return made;
    }
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
    std::optional<haloric::Screen> _behind; // with a backing
}
+ (NSArray*)screens
{
    NSMutableArray* all = [NSMutableArray array];
    if (substitute::backing()) {
        for (const haloric::Screen& screen : substitute::screensOfAppKit()) {
            NSScreen* made = [[NSScreen alloc] init];
            made->_behind = screen;
            made->_display = {static_cast<unsigned>(screen.displayID.value_or(haloric::DisplayID::none)),
                              CGRectMake(screen.frame.x, screen.frame.y, screen.frame.width, screen.frame.height),
                              screen.backingScale};
            [all addObject:made];
        }
        return all;
    }
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
    if (_behind && !_behind->displayID)
        return @{};
    return @{@"NSScreenNumber" : @(_display.number)};
}
- (NSInteger)maximumFramesPerSecond
{
    return _behind ? static_cast<NSInteger>(_behind->maximumFramesPerSecond) : 60;
}
- (CGFloat)backingScaleFactor
{
    return _display.scale;
}
- (CADisplayLink*)displayLinkWithTarget:(id)target selector:(SEL)action
{
    return substitute::makeScreenLink(target, action, _behind ? &*_behind : nullptr);
}
@end
