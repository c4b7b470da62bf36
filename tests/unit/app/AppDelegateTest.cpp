#include "unit/app/AppDelegateFixture.h"

namespace haloric {
namespace {

using AppDelegateTest = AppDelegateFixture;

TEST_F(AppDelegateTest, makes_nothing_before_launching_has_finished)
{
    EXPECT_EQ(delegate->overlays(), nullptr);
    EXPECT_EQ(delegate->tracker(), nullptr);
    EXPECT_FALSE(delegate->trackerRunning());
    EXPECT_TRUE(toolkit.windows.empty());
    EXPECT_EQ(runLoop.pendingEventCount(), 0U);
}

TEST_F(AppDelegateTest, launching_makes_the_overlays_and_the_tracker)
{
    launch();
    ASSERT_NE(delegate->overlays(), nullptr);
    ASSERT_NE(delegate->tracker(), nullptr);
    EXPECT_EQ(toolkit.windows.size(), 3U);
    EXPECT_FALSE(delegate->tracker()->isRunning());
}

TEST_F(AppDelegateTest, the_tracker_starts_on_a_later_pass_of_the_main_loop)
{
    launch();
    EXPECT_FALSE(delegate->trackerRunning());
    runLoop.runPosted();
    EXPECT_TRUE(delegate->trackerRunning());
    EXPECT_TRUE(delegate->tracker()->isRunning());
}

TEST_F(AppDelegateTest, a_second_delivery_while_running_starts_nothing)
{
    launch();
    runLoop.runPosted();
    launch(); // makes a new tracker
    runLoop.runPosted();
    EXPECT_TRUE(delegate->trackerRunning());
    EXPECT_FALSE(delegate->tracker()->isRunning());
}

TEST_F(AppDelegateTest, the_tracker_s_states_reach_the_overlays)
{
    launch();
    runLoop.runPosted();
    EXPECT_EQ(delegate->tracker()->state().frame, kFrame);
    EXPECT_EQ(delegate->overlays()->state(), delegate->tracker()->state());
    EXPECT_TRUE(delegate->overlays()->highlightWindow().isVisible());
    EXPECT_TRUE(delegate->overlays()->pulseRunning());
}

TEST_F(AppDelegateTest, trust_is_checked_without_a_prompt_and_with_it_there_is_no_alert)
{
    launch();
    EXPECT_EQ(accessibility.prompts, std::vector<bool>{false});
    EXPECT_TRUE(alerts.shown.empty());
    EXPECT_EQ(application.activations, 0);
}

TEST_F(AppDelegateTest, without_trust_the_onboarding_alert_is_shown_in_front)
{
    accessibility.trusted = false;
    int activationsBefore = 0;
    alerts.whileShown = [&] { activationsBefore = application.activations; };
    launch();
    EXPECT_EQ(activationsBefore, 1);
    ASSERT_EQ(alerts.shown.size(), 1U);
    const AlertModel& alert = alerts.shown.front();
    EXPECT_EQ(alert.messageText, "Haloric needs Accessibility access");
    EXPECT_EQ(alert.informativeText,
              "Haloric reads the position of the active window so it can draw the highlight around it. It never reads "
              "window contents or keystrokes.\n\nClick Open System Settings, then turn on Haloric in the "
              "Accessibility list. The highlight appears as soon as access is granted.");
    EXPECT_EQ(alert.style, AlertStyle::informational);
    EXPECT_EQ(static_cast<int>(alert.style), 1);
    EXPECT_EQ(alert.icon, AlertIcon::application);
    EXPECT_EQ(alert.buttons, (Calls{"Open System Settings", "Later"}));
}

TEST_F(AppDelegateTest, the_tracker_starts_only_after_the_alert_was_dismissed)
{
    accessibility.trusted = false;
    bool startedMeanwhile = true;
    alerts.whileShown = [&] {
        runLoop.runFor(Seconds(5)); // the main loop runs during an alert
        startedMeanwhile = delegate->trackerRunning();
    };
    launch();
    EXPECT_FALSE(startedMeanwhile);
    EXPECT_FALSE(delegate->trackerRunning());
    runLoop.runPosted();
    EXPECT_TRUE(delegate->trackerRunning());
}

TEST_F(AppDelegateTest, the_first_button_brings_the_prompt_and_then_the_settings)
{
    accessibility.trusted = false;
    alerts.answer = 1000;
    launch();
    EXPECT_EQ(accessibility.prompts, (std::vector<bool>{false, true}));
    EXPECT_EQ(workspace.openedURLs,
              Calls{"x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility"});
}

TEST_F(AppDelegateTest, any_other_button_does_nothing_more)
{
    accessibility.trusted = false;
    for (const std::int64_t answer : {1001, 1002, 0, -1000}) {
        accessibility.prompts.clear();
        alerts.answer = answer;
        launch();
        EXPECT_EQ(accessibility.prompts, std::vector<bool>{false});
        EXPECT_TRUE(workspace.openedURLs.empty());
    }
    EXPECT_EQ(alerts.shown.size(), 4U); // once per launch
    runLoop.runFor(Seconds(60));
    EXPECT_EQ(alerts.shown.size(), 4U);
}

TEST_F(AppDelegateTest, quitting_stops_the_tracker_and_nothing_else)
{
    launch();
    runLoop.runPosted();
    delegate->applicationWillTerminate();
    EXPECT_FALSE(delegate->tracker()->isRunning());
    EXPECT_EQ(input.globalMonitorCount(), 0U);
    ASSERT_NE(delegate->overlays(), nullptr);
    EXPECT_TRUE(delegate->overlays()->highlightWindow().isVisible());
}

TEST_F(AppDelegateTest, quitting_before_the_tracker_started_stops_nothing)
{
    delegate->applicationWillTerminate(); // there is no tracker to stop
    launch();
    delegate->applicationWillTerminate();
    EXPECT_FALSE(delegate->trackerRunning());
}

TEST_F(AppDelegateTest, a_destroyed_delegate_starts_nothing)
{
    launch();
    delegate.reset();
    runLoop.runFor(Seconds(1));
    EXPECT_EQ(input.globalMonitorCount(), 0U);
    EXPECT_EQ(runLoop.armedTimerCount(), 0U);
}

} // namespace
} // namespace haloric
