// The application object and its login item.
#include "controls/Menus.h"
#include "foundation/Balance.h"
#include "loop/MainLoop.h"
#include "platform/LoginItemService.h"
#include "platform/Panels.h"
#include "windows/Windows.h"
#include "world/Backing.h"
#include "world/World.h"

#import <ServiceManagement/ServiceManagement.h>

#include <cstdlib>
#include <utility>

#include <unistd.h>

using substitute::raise;

namespace {

// What the backing's application reports goes to the application's delegate.
class DelegateBehind final : public haloric::ApplicationDelegate {
public:
    void applicationDidFinishLaunching() override
    {
        @autoreleasepool {
            [NSApp finishLaunching];
        }
    }
    bool applicationShouldHandleReopen(bool hasVisibleWindows) override
    {
        @autoreleasepool {
            const id delegate = NSApp.delegate;
            return [delegate applicationShouldHandleReopen:NSApp hasVisibleWindows:hasVisibleWindows];
        }
    }
    void applicationWillTerminate() override
    {
        @autoreleasepool {
            const id delegate = NSApp.delegate;
            [delegate applicationWillTerminate:(NSNotification*)[[NSNotification alloc] init]];
        }
    }
};

haloric::Application* applicationBehind()
{
    const substitute::Backing* backing = substitute::backing();
    return backing ? &backing->adapters.application : nullptr;
}

} // namespace

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
    static DelegateBehind behind;
    _delegate = delegate;
    if (haloric::Application* application = applicationBehind()) {
        _launched = false;
        application->setDelegate(&behind);
    }
}
- (id)delegate
{
    return _delegate;
}
- (BOOL)setActivationPolicy:(NSApplicationActivationPolicy)policy
{
    _policy = policy;
    if (haloric::Application* application = applicationBehind())
        application->setActivationPolicy(static_cast<haloric::ActivationPolicy>(policy));
    return YES;
}
// NSApplication activateIgnoringOtherApps: since macOS 14 the system may refuse it.
- (void)activateIgnoringOtherApps:(BOOL)v
{
    if (haloric::Application* application = applicationBehind())
        application->activateIgnoringOtherApps();
    else if (!substitute::activationRefused)
        substitute::activate(getpid());
}
- (BOOL)isActive
{
    return substitute::frontmostProcess() == NSProcessInfo.processInfo.processIdentifier;
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
    if (haloric::Application* application = applicationBehind())
        return substitute::windowBehind(application->keyWindow());
    return substitute::keyWindow;
}
- (NSWindow*)mainWindow
{
    if (haloric::Application* application = applicationBehind())
        return substitute::windowBehind(application->mainWindow());
    return substitute::keyWindow;
}
- (void)run
{
    if (haloric::Application* application = applicationBehind()) { // the loop is run from outside
        application->run();
        return;
    }
    [self finishLaunching];
    while (!_ends)
        substitute::turn(NSDefaultRunLoopMode, substitute::now() + 1);
}
- (void)terminate:(id)sender
{
    if (haloric::Application* application = applicationBehind()) {
        application->terminate();
        return;
    }
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
    if (const substitute::Backing* backing = substitute::backing()) {
        const auto word = [options](NSString* key) {
            NSString* value = options[key];
            return value ? [value _utf8] : std::string();
        };
        haloric::AboutPanel panel;
        panel.applicationName = word(NSAboutPanelOptionApplicationName);
        panel.applicationVersion = word(NSAboutPanelOptionApplicationVersion);
        panel.version = word(NSAboutPanelOptionVersion);
        backing->adapters.panels.orderFrontStandardAboutPanel(panel);
        return;
    }
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

static BOOL noError(const std::optional<haloric::PlatformError>& error, NSError** to)
{
    if (error && to)
        *to = substitute::errorBehind(*error);
    return !error;
}
@implementation SMAppService
+ (SMAppService*)mainAppService
{
    static SMAppService* const one = substitute::permanent([] { return [[SMAppService alloc] init]; });
    return one;
}
- (SMAppServiceStatus)status
{
    ++substitute::questions()["status"];
    if (const substitute::Backing* backing = substitute::backing())
        return static_cast<SMAppServiceStatus>(backing->adapters.loginItems.status());
    return SMAppServiceStatusNotRegistered;
}
- (BOOL)registerAndReturnError:(NSError**)e
{
    if (const substitute::Backing* backing = substitute::backing())
        return noError(backing->adapters.loginItems.registerApplication(), e);
    return YES;
}
- (BOOL)unregisterAndReturnError:(NSError**)e
{
    if (const substitute::Backing* backing = substitute::backing())
        return noError(backing->adapters.loginItems.unregisterApplication(), e);
    return YES;
}
@end
