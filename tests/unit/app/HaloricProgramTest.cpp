#include "app/HaloricProgram.h"

#include "app/AppDelegate.h"
#include "unit/app/ApplicationFixture.h"

namespace haloric {
namespace {

class HaloricProgramTest : public ApplicationFixture {
protected:
    std::ptrdiff_t libraryOpenings() const
    {
        return std::ranges::count_if(library.calls, [](const auto& call) { return call == "load()"; });
    }
};

TEST_F(HaloricProgramTest, sets_the_delegate_and_the_policy_and_runs_the_application)
{
    HaloricProgram program(platform());
    EXPECT_TRUE(application.calls.empty());
    program.run();
    EXPECT_EQ(application.calls, (Calls{"setDelegate", "setActivationPolicy", "run"}));
    EXPECT_EQ(application.delegate, &program.delegate());
    EXPECT_EQ(application.policy, ActivationPolicy::accessory);
    EXPECT_EQ(static_cast<int>(ActivationPolicy::accessory), 1);
}

TEST_F(HaloricProgramTest, makes_one_store_before_it_runs)
{
    HaloricProgram program(platform());
    EXPECT_EQ(defaults.reads, Calls{"Haloric.settings.v1"});
    EXPECT_EQ(program.delegate().overlays(), nullptr);
}

TEST_F(HaloricProgramTest, makes_one_shared_bridge_at_its_first_use)
{
    HaloricProgram program(platform());
    program.run();
    EXPECT_TRUE(library.calls.empty()) << "no window has been found yet";
    runLoop.runPosted();
    ASSERT_EQ(program.delegate().overlays()->state().frame, kFrame);
    EXPECT_EQ(libraryOpenings(), 1);

    library.bounds[kWindow].x += 10;
    library.notify(WindowServerEvent::moved, kWindow);
    runLoop.runFor(Seconds(1));
    EXPECT_EQ(library.createdTransactions(), 1U) << "the highlight has followed through the bridge";
    EXPECT_EQ(libraryOpenings(), 1);
}

TEST_F(HaloricProgramTest, logs_nothing_about_an_unused_bridge)
{
    const std::string disabled = "WindowServer fast path disabled; using display-linked fallback";
    processes.environment["HALORIC_DISABLE_WINDOWSERVER_FAST_PATH"] = "1";
    workspace.frontmost.reset();
    HaloricProgram program(platform());
    program.run();
    runLoop.runFor(Seconds(2));
    ASSERT_TRUE(program.delegate().trackerRunning());
    EXPECT_TRUE(log.lines.empty());

    workspace.frontmost = FrontmostApplication{kEditor, false};
    runLoop.runFor(Seconds(2));
    EXPECT_EQ(std::ranges::count(log.lines, disabled), 1);
}

TEST_F(HaloricProgramTest, the_program_works_after_run_has_returned)
{
    HaloricProgram program(platform());
    program.run();
    runLoop.runPosted();
    ASSERT_TRUE(program.delegate().trackerRunning());
    EXPECT_EQ(program.delegate().overlays()->state().frame, kFrame);
    EXPECT_TRUE(toolkit.windows.front()->visible);

    program.settingsStore().update([](Settings& settings) { settings.dimEnabled = true; });
    runLoop.runPosted();
    EXPECT_EQ(toolkit.stack.size(), 2U);
}

TEST_F(HaloricProgramTest, its_store_is_the_one_that_the_delegate_uses)
{
    HaloricProgram program(platform());
    program.settingsStore().update([](Settings& settings) { settings.glowRadius = 31; });
    program.run();
    EXPECT_EQ(program.delegate().overlays()->highlightView().settings.glowRadius, 31);
}

TEST_F(HaloricProgramTest, its_own_windows_are_not_dimmed)
{
    const ProcessID other{9};
    const Rect rect{10, 10, 50, 50};
    workspace.bundleIdentifiers = {{application.pid, "com.kestrow.haloric"}, {other, "com.kestrow.haloric"}};
    windowInfo.windows->push_back(FakeWindowInfoSource::ordinary(WindowNumber{90}, application.pid, rect));
    windowInfo.windows->push_back(FakeWindowInfoSource::ordinary(WindowNumber{91}, other, rect));
    HaloricProgram program(platform());
    program.settingsStore().update([](Settings& settings) {
        settings.dimEnabled = true;
        settings.dimScope = DimScope::selectedApps;
        settings.dimApps = {"com.kestrow.haloric"};
    });
    program.run();
    runLoop.runPosted();
    const auto& items = program.delegate().overlays()->appDimViews()[0]->windows;
    EXPECT_EQ(std::ranges::count(items, true, &AppDimView::Window::dim), 1);
}

TEST_F(HaloricProgramTest, the_updater_is_made_once_when_the_menu_is_built)
{
    bundle.info["SUFeedURL"] = "https://example.org/appcast.xml";
    HaloricProgram program(platform());
    EXPECT_TRUE(updaterFramework.made.empty());
    program.run();
    ASSERT_EQ(updaterFramework.made.size(), 1U);
    ASSERT_TRUE(statusItems.choose("Check for Updates…"));
    EXPECT_EQ(updaterFramework.checks, 1);
    EXPECT_EQ(updaterFramework.made.size(), 1U);
}

TEST_F(HaloricProgramTest, the_menu_acts_on_the_one_store_and_the_overlays_follow)
{
    HaloricProgram program(platform());
    program.run();
    runLoop.runPosted();
    ASSERT_TRUE(statusItems.choose("Dim other windows"));
    EXPECT_TRUE(program.settingsStore().settings().dimEnabled);
    runLoop.runPosted();
    EXPECT_EQ(toolkit.stack.size(), 2U);
}

TEST_F(HaloricProgramTest, the_hotkey_is_the_shared_one)
{
    HaloricProgram program(platform());
    program.settingsStore().update([](Settings& settings) { settings.hotkeyEnabled = true; });
    program.run();
    EXPECT_TRUE(program.hotkeyManager().isRegistered());
    hotkeys.press();
    EXPECT_EQ(formWindows.windows.size(), 1U);
}

TEST_F(HaloricProgramTest, login_in_the_menu_reaches_the_host)
{
    HaloricProgram program(platform());
    program.run();
    ASSERT_TRUE(statusItems.choose("Launch at Login"));
    EXPECT_EQ(loginItems.changes, Calls{"register"});
}

TEST_F(HaloricProgramTest, restart_in_the_settings_window_opens_the_bundle_again)
{
    HaloricProgram program(platform());
    program.run();
    ASSERT_TRUE(statusItems.choose("Settings…"));
    for (const FormRow& row : formWindows.windows.front()->form.buttons)
        if (const auto& button = std::get<FormButton>(row.control); button.label == "Restart")
            button.perform();
    ASSERT_EQ(processes.launches.size(), 1U);
    EXPECT_EQ(processes.launches.front().executable, "/bin/sh");
    EXPECT_TRUE(application.terminated);
}

TEST_F(HaloricProgramTest, quitting_stops_the_tracker)
{
    HaloricProgram program(platform());
    program.run();
    runLoop.runPosted();
    application.terminate();
    EXPECT_FALSE(program.delegate().tracker()->isRunning());
}

TEST_F(HaloricProgramTest, leaves_no_timer_and_no_registration_behind)
{
    {
        HaloricProgram program(platform());
        program.run();
        runLoop.runFor(Seconds(1));
        EXPECT_GT(runLoop.armedTimerCount(), 0U);
    }
    EXPECT_EQ(runLoop.armedTimerCount(), 0U);
    EXPECT_EQ(input.globalMonitorCount(), 0U);
    EXPECT_EQ(input.liveTaps, 0);
    EXPECT_EQ(screens.observerCount(), 0U);
    EXPECT_EQ(workspace.observerCount(WorkspaceNotification::activeSpaceDidChange), 0U);
    EXPECT_TRUE(library.registeredEvents().empty());
    EXPECT_FALSE(statusItems.items.front()->alive);
    runLoop.runFor(Seconds(1));
}

} // namespace
} // namespace haloric
