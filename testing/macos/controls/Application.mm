// The application object and its login item.
#include "controls/Menus.h"
#include "foundation/Balance.h"
#include "loop/MainLoop.h"
#include "windows/Windows.h"
#include "world/World.h"

#import <ServiceManagement/ServiceManagement.h>

#include <cstdlib>
#include <utility>

#include <unistd.h>

using substitute::raise;

NSApplication* NSApp;
bool substitute::activationRefused = false;

@implementation NSApplication {
    id __weak _delegate;
    NSApplicationActivationPolicy _policy;
    bool _ends, _launched;
    NSMenu* _mainMenu;
}
+ (NSApplication*)sharedApplication
{
    if (!NSApp)
        NSApp = substitute::permanent([] { return [[NSApplication alloc] init]; });
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
// NSApplication activateIgnoringOtherApps: since macOS 14 the system may refuse it.
- (void)activateIgnoringOtherApps:(BOOL)v
{
    if (!substitute::activationRefused)
        substitute::activate(getpid());
}
- (BOOL)isActive
{
    return substitute::World::the().frontmost == getpid();
}
- (void)yieldActivationToApplication:(NSRunningApplication*)application
{
    if (self.active)
        substitute::yieldedTo = application.processIdentifier;
}
- (NSArray*)windows
{
    return substitute::windows();
}
- (void)setMainMenu:(NSMenu*)menu
{
    _mainMenu = menu;
}
- (NSMenu*)mainMenu
{
    return _mainMenu;
}
// NSMenu performKeyEquivalent: the first enabled item of that key and those modifiers sends its action to the target,
// or else along the responder chain: here the key window, then the application.
- (BOOL)_pressKey:(NSString*)key modifiers:(NSEventModifierFlags)modifiers
{
    if (!self.active)
        return NO;
    for (NSMenuItem* bar in _mainMenu.itemArray)
        for (NSMenuItem* item in bar.submenu.itemArray) {
            if (![item.keyEquivalent isEqualToString:key] || item.keyEquivalentModifierMask != modifiers)
                continue;
            for (id target in item.target ? @[ item.target ] : @[ substitute::keyWindow ?: (id)self, self ])
                if ([target respondsToSelector:item.action]) {
                    [target performSelector:item.action withObject:item];
                    return YES;
                }
        }
    return NO;
}
// NSApplicationDelegate applicationShouldHandleReopen:hasVisibleWindows: is asked; YES would open an untitled document.
- (void)_reopen
{
    bool visible = false;
    for (NSWindow* window in substitute::windows())
        visible = visible || window.visible;
    id d = _delegate;
    if ([d respondsToSelector:@selector(applicationShouldHandleReopen:hasVisibleWindows:)])
        [d applicationShouldHandleReopen:self hasVisibleWindows:visible];
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
// NSApplication orderFrontStandardAboutPanelWithOptions: makes one panel and orders it front each time.
- (void)orderFrontStandardAboutPanelWithOptions:(NSDictionary*)options
{
    static NSWindow* const panel = substitute::permanent([] {
        NSWindow* panel = [[NSPanel alloc] initWithContentRect:NSMakeRect(0, 0, 280, 160)
                                                     styleMask:NSWindowStyleMaskTitled | NSWindowStyleMaskClosable
                                                       backing:NSBackingStoreBuffered
                                                         defer:NO];
        panel.releasedWhenClosed = NO;
        panel.title = @"About";
        return panel;
    });
    [panel makeKeyAndOrderFront:nil];
}
@end

@implementation SMAppService
+ (SMAppService*)mainAppService
{
    static SMAppService* const one = substitute::permanent([] { return [[SMAppService alloc] init]; });
    return one;
}
- (SMAppServiceStatus)status
{
    ++substitute::questions()["status"];
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
