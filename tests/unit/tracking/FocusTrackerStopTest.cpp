#include "unit/tracking/FocusTrackerFixture.h"

namespace haloric {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class FocusTrackerStopTest : public FocusTrackerFixture {};

TEST_F(FocusTrackerStopTest, stopping_releases_everything)
{
    start();
    tracker->stop();
    EXPECT_FALSE(tracker->isRunning());
    EXPECT_FALSE(tracker->isFastTracking());
    EXPECT_EQ(links.runningLinkCount(), 0U);
    EXPECT_EQ(tracker->currentWindowID(), WindowNumber::none);
    EXPECT_THAT(library.requestedWindows(), IsEmpty());
    for (const auto notification : kWorkspaceNotifications)
        EXPECT_EQ(workspace.observerCount(notification), 0U);
    EXPECT_EQ(screens.observerCount(), 0U);
    EXPECT_EQ(input.globalMonitorCount(), 0U);
    EXPECT_EQ(input.localMonitorCount(), 0U);
    EXPECT_EQ(loop.armedTimerCount(), 0U);
    EXPECT_FALSE(observer(0).onRunLoop);
    run();
    EXPECT_TRUE(observer(0).releasedInsideQueue);
}

TEST_F(FocusTrackerStopTest, stopping_publishes_nothing_and_keeps_the_last_state)
{
    start();
    const FocusState last = tracker->state();
    journal.clear();
    tracker->stop();
    loop.runFor(Seconds(1));
    EXPECT_THAT(journal, IsEmpty());
    EXPECT_EQ(tracker->state(), last);
}

TEST_F(FocusTrackerStopTest, stopping_resets_the_worker_on_the_queue)
{
    start();
    const auto element = axApplication(kEditor);
    const auto uses = element.use_count();
    tracker->stop();
    EXPECT_EQ(element.use_count(), uses) << "the main thread does not touch the worker";
    loop.runNext();
    EXPECT_FALSE(observer(0).live);
    EXPECT_EQ(element.use_count(), uses) << "the observation is released first";
    loop.runNext();
    EXPECT_EQ(element.use_count(), uses - 1);
    start();
    EXPECT_EQ(accessibility.count("app 7"), 2U);
}

TEST_F(FocusTrackerStopTest, stopping_a_stopped_tracker_does_nothing)
{
    tracker->stop();
    EXPECT_EQ(loop.pendingEventCount(), 0U) << "not even the worker is reset";
}

TEST_F(FocusTrackerStopTest, a_result_that_arrives_after_the_stop_is_dropped)
{
    startUntilResultIsUnderWay();
    tracker->stop();
    run();
    EXPECT_THAT(journal, IsEmpty());
    EXPECT_FALSE(tracker->isQueryInFlight());
    EXPECT_THAT(observer(0).runLoop, IsEmpty());
    EXPECT_TRUE(observer(0).releasedInsideQueue);
}

TEST_F(FocusTrackerStopTest, a_result_from_before_a_stop_and_a_new_start_is_dropped)
{
    startUntilResultIsUnderWay();
    tracker->stop();
    tracker->start();
    EXPECT_THAT(takeJournal(), ElementsAre("blank", "cleared 7"));
    deliverResult();
    EXPECT_THAT(journal, IsEmpty());
    run();
    EXPECT_THAT(journal, ElementsAre("7/42 100,400 400x300", "pulse"));
    EXPECT_EQ(queryCount(), 2U);
}

TEST_F(FocusTrackerStopTest, a_pending_follow_up_is_dropped_by_the_stop)
{
    startUntilResultIsUnderWay();
    askForRefresh();
    tracker->stop();
    run();
    EXPECT_EQ(queryCount(), 1U);
}

TEST_F(FocusTrackerStopTest, a_follow_up_from_before_a_stop_is_not_made_after_a_new_start)
{
    startUntilResultIsUnderWay();
    askForRefresh();
    tracker->stop();
    workspace.frontmost.reset();
    tracker->start(); // starts no query without an application
    makeFrontmost(kEditor);
    deliverResult();
    EXPECT_TRUE(tracker->isQueryInFlight());
    finishQuery();
    EXPECT_FALSE(tracker->isQueryInFlight());
}

TEST_F(FocusTrackerStopTest, a_pulse_that_was_due_is_forgotten_by_the_stop)
{
    start();
    journal.clear();
    tracker->onChange = [this](const FocusState& state) {
        journal.push_back(describe(state));
        tracker->stop();
    };
    focus(kEditor, addWindow(kEditor, kOtherWindow, {200, 200, 300, 300}));
    notify("AXFocusedWindowChanged");
    run();
    EXPECT_THAT(journal, ElementsAre("7/43 200,300 300x300"));
}

TEST_F(FocusTrackerStopTest, events_after_the_stop_do_nothing)
{
    start();
    tracker->stop();
    run();
    journal.clear();
    accessibility.calls.clear();
    activate(kMail);
    screens.announceChange();
    input.sendGlobal(EventType::leftMouseDown);
    input.sendLocal(EventType::leftMouseUp);
    loop.runFor(Seconds(1));
    EXPECT_THAT(journal, IsEmpty());
    EXPECT_THAT(accessibility.calls, IsEmpty());
    EXPECT_FALSE(tracker->isFastTracking());
}

TEST_F(FocusTrackerStopTest, destroying_a_running_tracker_stops_it)
{
    start();
    tracker.reset();
    EXPECT_EQ(loop.armedTimerCount(), 0U);
    EXPECT_EQ(input.globalMonitorCount(), 0U);
    EXPECT_EQ(links.runningLinkCount(), 0U);
    run();
    EXPECT_TRUE(observer(0).releasedInsideQueue);
    EXPECT_FALSE(observer(0).releasedWhileOnRunLoop);
}

TEST_F(FocusTrackerStopTest, a_tracker_may_be_destroyed_while_its_query_runs)
{
    startUntilResultIsUnderWay();
    tracker.reset();
    run();
    EXPECT_THAT(journal, IsEmpty());
    EXPECT_FALSE(observer(0).live);
    EXPECT_TRUE(observer(0).releasedInsideQueue);
    EXPECT_THAT(observer(0).runLoop, IsEmpty());
}

TEST_F(FocusTrackerStopTest, a_tracker_may_be_destroyed_before_its_query_starts)
{
    tracker->start();
    tracker.reset();
    run();
    EXPECT_THAT(takeJournal(), ElementsAre("cleared 7"));
    EXPECT_FALSE(observer(0).live);
    EXPECT_TRUE(observer(0).releasedInsideQueue);
}

TEST_F(FocusTrackerStopTest, the_listener_may_stop_the_tracker)
{
    tracker->onChange = [this](const FocusState& state) {
        journal.push_back(describe(state));
        if (state.frame)
            tracker->stop();
    };
    start();
    EXPECT_THAT(journal, ElementsAre("cleared 7", "7/42 100,400 400x300"));
    EXPECT_FALSE(tracker->isFastTracking());
    EXPECT_EQ(loop.armedTimerCount(), 0U);
}

TEST_F(FocusTrackerStopTest, a_listener_that_stops_it_before_the_query_prevents_the_query)
{
    tracker->onChange = [this](const FocusState&) { tracker->stop(); };
    start();
    EXPECT_THAT(accessibility.calls, IsEmpty());
    EXPECT_FALSE(tracker->isQueryInFlight());
}

} // namespace
} // namespace haloric
