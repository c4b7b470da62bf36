#include "app/EntrySequence.h"

#include "app/AppDelegate.h"
#include "unit/app/ApplicationFixture.h"

namespace haloric {
namespace {

class EntrySequenceTest : public ApplicationFixture {
protected:
    std::ptrdiff_t libraryOpenings() const
    {
        return std::ranges::count_if(library.calls, [](const auto& call) { return call == "load()"; });
    }
};

TEST_F(EntrySequenceTest, sets_the_delegate_and_the_policy_and_runs_the_application)
{
    EntrySequence sequence(platform());
    EXPECT_TRUE(application.calls.empty());
    sequence.run();
    EXPECT_EQ(application.calls, (Calls{"setDelegate", "setActivationPolicy", "run"}));
    EXPECT_EQ(application.delegate, &sequence.delegate());
    EXPECT_EQ(application.policy, ActivationPolicy::accessory);
    EXPECT_EQ(static_cast<int>(ActivationPolicy::accessory), 1);
}

TEST_F(EntrySequenceTest, makes_one_store_before_it_runs)
{
    EntrySequence sequence(platform());
    EXPECT_EQ(defaults.reads, Calls{"Haloric.settings.v1"});
    EXPECT_EQ(sequence.delegate().overlays(), nullptr);
}

TEST_F(EntrySequenceTest, makes_one_bridge_for_everybody_and_that_at_its_first_use)
{
    EntrySequence sequence(platform());
    sequence.run();
    EXPECT_TRUE(library.calls.empty()) << "no window has been found yet";
    runLoop.runPosted();
    ASSERT_EQ(sequence.delegate().overlays()->state().frame, kFrame);
    EXPECT_EQ(libraryOpenings(), 1);

    library.bounds[kWindow].x += 10;
    library.notify(WindowServerEvent::moved, kWindow);
    runLoop.runFor(Seconds(1));
    EXPECT_EQ(library.createdTransactions(), 1U) << "the highlight has followed through the bridge";
    EXPECT_EQ(libraryOpenings(), 1);
}

TEST_F(EntrySequenceTest, says_nothing_of_a_bridge_that_nobody_has_used)
{
    const std::string disabled = "WindowServer fast path disabled; using display-linked fallback";
    processes.environment["HALORIC_DISABLE_WINDOWSERVER_FAST_PATH"] = "1";
    workspace.frontmost.reset();
    EntrySequence sequence(platform());
    sequence.run();
    runLoop.runFor(Seconds(2));
    ASSERT_TRUE(sequence.delegate().trackerRunning());
    EXPECT_TRUE(log.lines.empty());

    workspace.frontmost = FrontmostApplication{kEditor, false};
    runLoop.runFor(Seconds(2));
    EXPECT_EQ(std::ranges::count(log.lines, disabled), 1);
}

TEST_F(EntrySequenceTest, the_program_lives_on_after_run_has_returned)
{
    EntrySequence sequence(platform());
    sequence.run();
    runLoop.runPosted();
    ASSERT_TRUE(sequence.delegate().trackerRunning());
    EXPECT_EQ(sequence.delegate().overlays()->state().frame, kFrame);
    EXPECT_TRUE(toolkit.windows.front()->visible);

    sequence.settingsStore().update([](Settings& settings) { settings.dimEnabled = true; });
    runLoop.runPosted();
    EXPECT_EQ(toolkit.stack.size(), 2U);
}

TEST_F(EntrySequenceTest, its_store_is_the_one_that_the_delegate_uses)
{
    EntrySequence sequence(platform());
    sequence.settingsStore().update([](Settings& settings) { settings.glowRadius = 31; });
    sequence.run();
    EXPECT_EQ(sequence.delegate().overlays()->highlightView().settings.glowRadius, 31);
}

TEST_F(EntrySequenceTest, windows_of_its_own_process_are_not_dimmed)
{
    const ProcessID other{9};
    const Rect rect{10, 10, 50, 50};
    workspace.bundleIdentifiers = {{application.pid, "com.kestrow.haloric"}, {other, "com.kestrow.haloric"}};
    windowInfo.windows->push_back(FakeWindowInfoSource::ordinary(WindowNumber{90}, application.pid, rect));
    windowInfo.windows->push_back(FakeWindowInfoSource::ordinary(WindowNumber{91}, other, rect));
    EntrySequence sequence(platform());
    sequence.settingsStore().update([](Settings& settings) {
        settings.dimEnabled = true;
        settings.dimScope = DimScope::selectedApps;
        settings.dimApps = {"com.kestrow.haloric"};
    });
    sequence.run();
    runLoop.runPosted();
    const auto& items = sequence.delegate().overlays()->appDimViews()[0]->windows;
    EXPECT_EQ(std::ranges::count(items, true, &AppDimView::Window::dim), 1);
}

TEST_F(EntrySequenceTest, the_updater_is_decided_on_when_the_menu_is_built_and_once)
{
    bundle.info["SUFeedURL"] = "https://example.org/appcast.xml";
    EntrySequence sequence(platform());
    EXPECT_TRUE(updaterFramework.made.empty());
    sequence.run();
    ASSERT_EQ(updaterFramework.made.size(), 1U);
    ASSERT_TRUE(statusItems.choose("Check for Updates…"));
    EXPECT_EQ(updaterFramework.checks, 1);
    EXPECT_EQ(updaterFramework.made.size(), 1U);
}

TEST_F(EntrySequenceTest, the_menu_acts_on_the_one_store_and_the_overlays_follow)
{
    EntrySequence sequence(platform());
    sequence.run();
    runLoop.runPosted();
    ASSERT_TRUE(statusItems.choose("Dim other windows"));
    EXPECT_TRUE(sequence.settingsStore().settings().dimEnabled);
    runLoop.runPosted();
    EXPECT_EQ(toolkit.stack.size(), 2U);
}

TEST_F(EntrySequenceTest, the_hotkey_is_the_one_that_everybody_shares)
{
    EntrySequence sequence(platform());
    sequence.settingsStore().update([](Settings& settings) { settings.hotkeyEnabled = true; });
    sequence.run();
    EXPECT_TRUE(sequence.hotkeyManager().isRegistered());
    hotkeys.press();
    EXPECT_EQ(formWindows.windows.size(), 1U);
}

TEST_F(EntrySequenceTest, login_in_the_menu_reaches_the_host)
{
    EntrySequence sequence(platform());
    sequence.run();
    ASSERT_TRUE(statusItems.choose("Launch at Login"));
    EXPECT_EQ(loginItems.changes, Calls{"register"});
}

TEST_F(EntrySequenceTest, restart_in_the_settings_window_has_the_bundle_opened_again)
{
    EntrySequence sequence(platform());
    sequence.run();
    ASSERT_TRUE(statusItems.choose("Settings…"));
    for (const FormRow& row : formWindows.windows.front()->form.buttons)
        if (const auto& button = std::get<FormButton>(row.control); button.label == "Restart")
            button.perform();
    ASSERT_EQ(processes.launches.size(), 1U);
    EXPECT_EQ(processes.launches.front().executable, "/bin/sh");
    EXPECT_TRUE(application.terminated);
}

TEST_F(EntrySequenceTest, quitting_stops_the_tracker)
{
    EntrySequence sequence(platform());
    sequence.run();
    runLoop.runPosted();
    application.terminate();
    EXPECT_FALSE(sequence.delegate().tracker()->isRunning());
}

TEST_F(EntrySequenceTest, leaves_no_timer_and_no_registration_behind)
{
    {
        EntrySequence sequence(platform());
        sequence.run();
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
