// What a dragged slider of the settings window costs: the questions that its adapters put to other processes.
#include "fakes/FakeBundle.h"
#include "fakes/FakeUpdaterFramework.h"
#include "hosts/macos/base/MacConversions.h"
#include "hosts/macos/base/MacLog.h"
#include "hosts/macos/base/MacProcesses.h"
#include "hosts/macos/base/MacUserDefaults.h"
#include "hosts/macos/form/MacFormWindows.h"
#include "hosts/macos/form/MacStepSlider.h"
#include "hosts/macos/input/MacInputMonitors.h"
#include "hosts/macos/loop/MacRunLoop.h"
#include "hosts/macos/loop/MacSerialQueues.h"
#include "hosts/macos/refresh/MacDisplayLinks.h"
#include "hosts/macos/refresh/MacScreens.h"
#include "hosts/macos/shell/MacAlerts.h"
#include "hosts/macos/shell/MacApplication.h"
#include "hosts/macos/shell/MacLoginItemService.h"
#include "hosts/macos/shell/MacPanels.h"
#include "hosts/macos/shell/MacStatusItems.h"
#include "hosts/macos/windows/MacAccessibility.h"
#include "hosts/macos/windows/MacApplicationCatalog.h"
#include "hosts/macos/windows/MacWindowInfoSource.h"
#include "hosts/macos/windows/MacWorkspace.h"
#include "hosts/posix/PosixLibrary.h"
#include "menubar/StatusBarController.h"
#include "menubar/UpdaterManager.h"
#include "tracking/FocusTracker.h"
#include "windowserver/LoadedWindowServerCalls.h"
#include "windowserver/SharedWindowServer.h"

#include "loop/MainLoop.h"
#include "windows/Windows.h"
#include "world/World.h"

#include <gtest/gtest.h>

namespace haloric {
namespace {

using substitute::World;

MacStepSlider* sliderNamed(NSView* view, const std::string& start)
{
    if ([view isKindOfClass:MacStepSlider.class] && stringFrom(view.accessibilityLabel).starts_with(start))
        return (MacStepSlider*)view;
    for (NSView* inner in view.subviews)
        if (MacStepSlider* found = sliderNamed(inner, start))
            return found;
    return nil;
}

class MacSettingsCostTest : public testing::Test {
protected:
    MacSettingsCostTest()
    {
        World::the().reset();
        World::the().open(5001, CGRectMake(100, 100, 400, 300));
        World::the().open(5002, CGRectMake(200, 100, 400, 300));
        store.update([](Settings& settings) {
            settings.dimScope = DimScope::selectedApps;
            settings.dimApps = {"application.5001", "application.5002"};
        });
    }

    static void turn()
    {
        const double end = substitute::now() + 0.001;
        while (substitute::now() < end)
            substitute::turn(NSDefaultRunLoopMode, end);
    }

    MacApplication application;
    MacRunLoop runLoop;
    MacSerialQueues serialQueues;
    MacDisplayLinks displayLinks;
    MacWorkspace workspace;
    MacScreens screens;
    MacAccessibility accessibility;
    MacWindowInfoSource windowInfo;
    PosixLibrary library{CFRelease};
    LoadedWindowServerCalls windowServerCalls{library};
    MacInputMonitors input;
    MacAlerts alerts;
    MacStatusItems statusItems;
    MacFormWindows formWindows;
    MacLoginItemService loginItems;
    MacPanels panels;
    MacApplicationCatalog catalog;
    MacProcesses processes;
    MacUserDefaults defaults;
    MacLog log;
    FakeBundle bundle; // in an application, unlike the test
    FakeUpdaterFramework updaterFramework;
    SharedWindowServer windowServer{windowServerCalls, processes, runLoop, log};
    FocusTracker tracker{FocusTrackerDependencies{runLoop, serialQueues, displayLinks, workspace, screens,
                                                  accessibility, windowInfo, input, application, windowServer}};
    SettingsStore store{defaults};
    LaunchAtLogin launchAtLogin{bundle, loginItems};
    UpdaterManager updater{bundle, updaterFramework};
    StatusBarController controller{
        {runLoop,
         statusItems,
         formWindows,
         panels,
         alerts,
         application,
         accessibility,
         workspace,
         bundle,
         launchAtLogin,
         [this]() -> UpdaterManager& { return updater; },
         {bundle, catalog, loginItems, accessibility, workspace, panels, alerts, application, [] {}}},
        store,
        tracker};
};

TEST_F(MacSettingsCostTest, a_step_of_a_slider_asks_for_the_trust_and_once_a_second_for_the_login_item)
{
    ASSERT_TRUE(launchAtLogin.isAvailable());
    controller.openSettings();
    turn();
    NSWindow* window = nil;
    for (NSWindow* each in substitute::windows())
        if ([each.title isEqualToString:@"Haloric Settings"])
            window = each;
    MacStepSlider* slider = sliderNamed(window.contentView, "Glow: Radius");
    ASSERT_TRUE(slider);
    controller.syncMenu();
    substitute::questions().clear();
    const double start = substitute::now();
    constexpr int kSteps = 30;
    for (int step = 0; step < kSteps; ++step) {
        slider.doubleValue = 5 + step;
        [slider sendAction:slider.action to:slider.target];
        turn();
    }
    EXPECT_EQ(store.settings().glowRadius, 4 + kSteps);
    const int seconds = static_cast<int>(substitute::now() - start); // the menu reads its state again each second
    auto& questions = substitute::questions();
    EXPECT_LE(questions["status"], seconds);
    EXPECT_GE(questions["AXIsProcessTrusted"], kSteps) << "the form shows whether the grant is there";
    EXPECT_LE(questions["AXIsProcessTrusted"], kSteps + seconds);
    EXPECT_EQ(questions["runningApplications"], 0);
    EXPECT_EQ(questions["URLForApplicationWithBundleIdentifier:"], 0);
}

} // namespace
} // namespace haloric
