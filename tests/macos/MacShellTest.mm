// The application object, its menu, windows, alerts and panels, as the desktop then shows them.
#include "hosts/macos/base/MacConversions.h"
#include "hosts/macos/form/MacFormWindows.h"
#include "hosts/macos/overlay/MacToolkitWindows.h"
#include "hosts/macos/refresh/MacScreens.h"
#include "hosts/macos/shell/MacAlerts.h"
#include "hosts/macos/shell/MacApplication.h"
#include "hosts/macos/shell/MacPanels.h"
#include "hosts/macos/shell/MacStatusItems.h"
#include "platform/WindowStyle.h"

#include "controls/Menus.h"
#include "loop/MainLoop.h"
#include "windows/Windows.h"
#include "world/World.h"

#include <gtest/gtest.h>

#include <unistd.h>

namespace haloric {
namespace {

using substitute::World;

class MacShellTest : public testing::Test {
protected:
    static constexpr int kOther = 5001;

    MacShellTest()
    {
        World::the().reset();
        substitute::activationRefused = false;
        otherWindow = World::the().open(kOther, CGRectMake(100, 100, 400, 300));
        World::the().find(otherWindow)->layer = 3; // as high as the program's own windows
        substitute::activate(kOther);
        application = std::make_unique<MacApplication>();
        turn();
    }

    ~MacShellTest() override
    {
        substitute::whileAlertRuns = nullptr;
        substitute::alertResponse = NSAlertFirstButtonReturn;
    }

    static void turn()
    {
        const double end = substitute::now() + 0.005;
        while (substitute::now() < end)
            substitute::turn(NSDefaultRunLoopMode, end);
    }

    static std::unique_ptr<FormWindow> makeWindow(const std::string& title = "Haloric Settings")
    {
        const FormWindowConfiguration configuration{
            title, WindowStyle::kTitled | WindowStyle::kClosable | WindowStyle::kMiniaturizable, false, {440, 560}};
        return MacFormWindows().make(configuration, {});
    }

    static NSWindow* windowTitled(NSString* title)
    {
        for (NSWindow* window in substitute::windows())
            if ([window.title isEqualToString:title])
                return window;
        return nil;
    }

    bool isInFrontOfOther(NSWindow* window) const
    {
        for (const auto& each : World::the().windows) {
            if (each.number == otherWindow)
                return false;
            if (each.number == static_cast<unsigned>(window.windowNumber))
                return true;
        }
        return false;
    }

    unsigned otherWindow = 0;
    std::unique_ptr<MacApplication> application;
};

TEST_F(MacShellTest, an_activity_is_held_as_long_as_the_application_lives)
{
    ASSERT_EQ(substitute::activities().size(), 1U);
    EXPECT_EQ(substitute::activities().begin()->second, NSActivityUserInitiatedAllowingIdleSystemSleep);
    application.reset();
    EXPECT_TRUE(substitute::activities().empty());
}

TEST_F(MacShellTest, the_main_menu_closes_quits_and_edits_but_does_not_hide)
{
    std::vector<std::string> found;
    for (NSMenuItem* bar in NSApp.mainMenu.itemArray)
        for (NSMenuItem* item in bar.submenu.itemArray)
            found.push_back(stringFrom(NSStringFromSelector(item.action)) + " " + stringFrom(item.keyEquivalent));
    EXPECT_EQ(found, (std::vector<std::string>{"terminate: q", "performClose: w", "undo: z", "redo: z", "cut: x",
                                               "copy: c", "paste: v", "selectAll: a"}));
}

TEST_F(MacShellTest, command_w_closes_the_settings_window)
{
    const auto window = makeWindow();
    application->activateIgnoringOtherApps();
    window->makeKeyAndOrderFront();
    EXPECT_TRUE(window->isVisible());
    EXPECT_TRUE([NSApp _pressKey:@"w" modifiers:NSEventModifierFlagCommand]);
    EXPECT_FALSE(window->isVisible());
}

TEST_F(MacShellTest, a_window_opens_in_front_although_macos_refuses_the_activation)
{
    substitute::activationRefused = true;
    const auto window = makeWindow();
    application->activateIgnoringOtherApps();
    window->makeKeyAndOrderFront();
    EXPECT_TRUE(isInFrontOfOther(windowTitled(@"Haloric Settings")));
}

TEST_F(MacShellTest, a_minimised_window_counts_as_visible_and_comes_back)
{
    const auto window = makeWindow();
    window->makeKeyAndOrderFront();
    NSWindow* shown = windowTitled(@"Haloric Settings");
    [shown miniaturize:nil];
    EXPECT_TRUE(window->isVisible());
    window->makeKeyAndOrderFront();
    EXPECT_FALSE(shown.miniaturized);
    EXPECT_TRUE(shown.visible);
    [shown close];
    EXPECT_FALSE(window->isVisible());
}

TEST_F(MacShellTest, the_about_panel_opens_in_front_each_time)
{
    substitute::activationRefused = true;
    MacPanels panels;
    for (int time = 0; time < 2; ++time) {
        panels.orderFrontStandardAboutPanel({"Haloric", "1", "1", "text", 11});
        EXPECT_TRUE(isInFrontOfOther(windowTitled(@"About")));
        World::the().activate(kOther, otherWindow);
        EXPECT_FALSE(isInFrontOfOther(windowTitled(@"About")));
    }
    [windowTitled(@"About") close];
}

TEST_F(MacShellTest, alerts_are_above_ordinary_windows_and_activate_the_application)
{
    std::vector<NSWindowLevel> levels;
    substitute::whileAlertRuns = [&](NSAlert* alert) {
        levels.push_back(alert.window.level);
        EXPECT_TRUE(NSApp.active);
    };
    MacAlerts alerts;
    alerts.runModal({.messageText = "a", .informativeText = "b", .buttons = {"Open", "Later"}});
    World::the().activate(kOther, otherWindow);
    alerts.runModalError({"domain", 1, "text", ""});
    EXPECT_EQ(levels, (std::vector<NSWindowLevel>{NSModalPanelWindowLevel, NSModalPanelWindowLevel}));
}

TEST_F(MacShellTest, the_former_application_has_the_focus_again_once_the_last_window_is_closed)
{
    const auto first = makeWindow("first");
    const auto second = makeWindow("second");
    application->activateIgnoringOtherApps();
    first->makeKeyAndOrderFront();
    second->makeKeyAndOrderFront();
    turn();
    [windowTitled(@"first") close];
    turn();
    EXPECT_EQ(World::the().frontmost, getpid());
    [windowTitled(@"second") close];
    turn();
    EXPECT_EQ(World::the().frontmost, kOther);
}

TEST_F(MacShellTest, an_application_that_has_ended_gets_no_focus)
{
    const auto window = makeWindow();
    application->activateIgnoringOtherApps();
    window->makeKeyAndOrderFront();
    World::the().quit(kOther);
    [windowTitled(@"Haloric Settings") close];
    turn();
    EXPECT_EQ(World::the().frontmost, getpid());
}

TEST_F(MacShellTest, an_alert_gives_the_focus_back_unless_its_first_button_leads_on)
{
    MacAlerts alerts;
    const AlertModel model{.messageText = "a", .informativeText = "b", .buttons = {"Open System Settings", "Later"}};
    alerts.runModal(model);
    turn();
    EXPECT_EQ(World::the().frontmost, getpid());
    substitute::alertResponse = NSAlertSecondButtonReturn;
    alerts.runModal(model);
    turn();
    EXPECT_EQ(World::the().frontmost, kOther);
}

struct PlainDelegate final : ToolkitWindowDelegate {
    bool canBecomeKey() const override { return false; }
    bool canBecomeMain() const override { return false; }
    Rect constrainFrameRect(const Rect& proposed) const override { return proposed; }
};

TEST_F(MacShellTest, overlays_cannot_be_hidden_and_are_no_accessibility_elements)
{
    const PlainDelegate delegate;
    const auto overlay = MacToolkitWindows().make(
        {.contentRect = {}, .backing = 2, .defersCreation = false, .isReleasedWhenClosed = false}, delegate);
    for (NSWindow* window in substitute::windows())
        if (window.windowNumber == overlay->windowNumber()) {
            EXPECT_FALSE(window.canHide);
            EXPECT_FALSE(window.accessibilityElement);
        }
}

TEST_F(MacShellTest, the_status_item_has_a_name_for_voiceover)
{
    MacStatusItems items;
    const auto item = items.make(StatusItems::kSquareLength);
    item->setToolTip("Haloric");
    NSStatusItem* shown = NSStatusBar.systemStatusBar._items.lastObject;
    EXPECT_EQ(stringFrom(shown.button.accessibilityLabel), "Haloric");
}

TEST_F(MacShellTest, screens_are_published_again_when_the_displays_wake)
{
    MacScreens screens;
    int changes = 0;
    const Subscription subscription = screens.onParametersChange([&] { ++changes; });
    substitute::displays[0].scale = 1;
    [NSWorkspace.sharedWorkspace.notificationCenter postNotificationName:NSWorkspaceScreensDidWakeNotification
                                                                  object:nil];
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(screens.all().front().backingScale, 1);
    substitute::displays[0].scale = 2;
}

TEST_F(MacShellTest, the_delegate_answers_that_state_is_restored_securely)
{
    class Delegate final : public ApplicationDelegate {
        void applicationDidFinishLaunching() override {}
        void applicationWillTerminate() override {}
    } delegate;
    application->setDelegate(&delegate);
    EXPECT_TRUE([NSApp.delegate applicationSupportsSecureRestorableState:NSApp]);
    application->setDelegate(nullptr);
}

} // namespace
} // namespace haloric
