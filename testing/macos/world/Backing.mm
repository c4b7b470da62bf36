#include "world/Backing.h"

#include "controls/Menus.h"
#include "foundation/Foundation.h"
#include "loop/Clock.h"
#include "platform/RunLoop.h"
#include "platform/Workspace.h"
#include "world/World.h"

#import <AppKit/AppKit.h>

#include <vector>

namespace substitute {
namespace {

const Backing* g_backing;
std::vector<haloric::Subscription> g_subscriptions;
std::vector<haloric::Screen> g_screens;

// Its loop runs what the program submits, so the main loop of the stand-ins has
// nothing to wait for.
class BackingClock final : public Clock {
public:
    double now() const override { return g_backing->adapters.runLoop.systemUptime().count(); }
    double secondsSince1970() const override { return g_backing->adapters.runLoop.wallClock().count(); }
    void waitUntil(double) override { raise("the main loop waits, which the backing's loop drives"); }
    void wake() override {}
    bool hasThreads() const override { return false; }
};

BackingClock g_clock;

void readScreens()
{
    const auto screens = g_backing->adapters.screens.all();
    g_screens.assign(screens.begin(), screens.end());
}

void postWhenNotified(haloric::WorkspaceNotification notification, NSNotificationName name)
{
    const auto post = [name] {
        @autoreleasepool {
            [NSWorkspace.sharedWorkspace.notificationCenter postNotificationName:name
                                                                          object:NSWorkspace.sharedWorkspace];
        }
    };
    g_subscriptions.push_back(g_backing->adapters.workspace.observe(notification, post));
}

} // namespace

const Backing* backing() { return g_backing; }

const std::vector<haloric::Screen>& screensOfAppKit() { return g_screens; }

haloric::Rect flippedByAppKit(const haloric::Rect& rect)
{
    return haloric::flippedVertically(rect, g_screens.empty() ? 0 : g_screens.front().frame.height);
}

void setBacking(const Backing* backing)
{
    g_subscriptions.clear();
    forgetWindowServerClients();
    setMissingSymbols({});
    forgetHotkeys();
    g_backing = backing;
    setClock(backing ? &g_clock : nullptr);
    if (!backing)
        return;
    readScreens();
    using haloric::WorkspaceNotification;
    postWhenNotified(WorkspaceNotification::didActivateApplication, NSWorkspaceDidActivateApplicationNotification);
    postWhenNotified(WorkspaceNotification::didTerminateApplication, NSWorkspaceDidTerminateApplicationNotification);
    postWhenNotified(WorkspaceNotification::activeSpaceDidChange, NSWorkspaceActiveSpaceDidChangeNotification);
    g_subscriptions.push_back(backing->adapters.screens.onParametersChange([] {
        readScreens();
        @autoreleasepool {
            [NSNotificationCenter.defaultCenter postNotificationName:NSApplicationDidChangeScreenParametersNotification
                                                              object:NSApp];
        }
    }));
}

} // namespace substitute
