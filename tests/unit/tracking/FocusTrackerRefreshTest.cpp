#include "unit/tracking/FocusTrackerFixture.h"

namespace haloric {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class FocusTrackerRefreshTest : public FocusTrackerFixture {};

TEST_F(FocusTrackerRefreshTest, without_trust_it_shows_nothing_and_queries_nothing_until_access_is_granted)
{
    accessibility.trusted = false;
    start();
    loop.runFor(Seconds(1));
    EXPECT_THAT(journal, IsEmpty());
    EXPECT_THAT(accessibility.calls, IsEmpty());
    accessibility.trusted = true;
    poll();
    EXPECT_THAT(journal, ElementsAre("cleared 7", "7/42 100,400 400x300", "pulse"));
}

TEST_F(FocusTrackerRefreshTest, losing_trust_blanks_the_state_and_detaches_the_observation)
{
    start();
    journal.clear();
    accessibility.trusted = false;
    poll();
    EXPECT_THAT(journal, ElementsAre("blank"));
    EXPECT_EQ(tracker->currentWindowID(), WindowNumber::none);
    EXPECT_FALSE(observer(0).live);
    EXPECT_TRUE(observer(0).releasedInsideQueue);
}

TEST_F(FocusTrackerRefreshTest, without_a_frontmost_application_the_state_is_blank)
{
    start();
    journal.clear();
    workspace.frontmost.reset();
    poll();
    EXPECT_THAT(journal, ElementsAre("blank"));
    EXPECT_EQ(tracker->currentWindowID(), WindowNumber::none);
}

TEST_F(FocusTrackerRefreshTest, a_hidden_frontmost_application_is_treated_as_absent)
{
    start();
    journal.clear();
    workspace.frontmost->hidden = true;
    poll();
    EXPECT_THAT(takeJournal(), ElementsAre("blank"));
    workspace.frontmost->hidden = false;
    poll();
    EXPECT_THAT(journal, ElementsAre("cleared 7", "7/42 100,400 400x300"));
    EXPECT_TRUE(observer(1).onRunLoop);
}

TEST_F(FocusTrackerRefreshTest, an_application_that_is_hidden_while_a_query_runs_gets_no_result)
{
    startUntilResultIsUnderWay();
    workspace.frontmost->hidden = true;
    askForRefresh();
    EXPECT_THAT(takeJournal(), ElementsAre("blank"));
    workspace.frontmost->hidden = false;
    askForRefresh();
    EXPECT_THAT(takeJournal(), ElementsAre("cleared 7")) << "the same target, but a newer generation";
    deliverResult();
    EXPECT_THAT(journal, IsEmpty());
    finishQuery();
    EXPECT_THAT(observer(0).runLoop, IsEmpty());
}

TEST_F(FocusTrackerRefreshTest, a_target_that_changes_without_a_notification_is_cleared_first)
{
    start();
    journal.clear();
    makeFrontmost(kMail);
    askForRefresh();
    EXPECT_THAT(takeJournal(), ElementsAre("cleared 8"));
    EXPECT_EQ(tracker->currentWindowID(), WindowNumber::none);
    EXPECT_FALSE(observer(0).onRunLoop);
    run();
    EXPECT_THAT(journal, ElementsAre("8/50 500,400 300x200"));
    EXPECT_EQ(observer(1).pid, kMail);
}

TEST_F(FocusTrackerRefreshTest, a_result_for_a_target_that_was_left_and_taken_up_again_is_dropped)
{
    startUntilResultIsUnderWay();
    makeFrontmost(kMail);
    askForRefresh();
    makeFrontmost(kEditor);
    askForRefresh();
    EXPECT_THAT(takeJournal(), ElementsAre("cleared 8", "cleared 7"));
    deliverResult();
    EXPECT_THAT(journal, IsEmpty());
}

TEST_F(FocusTrackerRefreshTest, a_switch_publishes_blank_then_cleared_then_the_new_window_which_pulses)
{
    start();
    journal.clear();
    activate(kMail);
    EXPECT_THAT(journal, ElementsAre("blank", "cleared 8"));
    EXPECT_EQ(tracker->currentWindowID(), WindowNumber::none);
    run();
    EXPECT_THAT(journal, ElementsAre("blank", "cleared 8", "8/50 500,400 300x200", "pulse"));
}

TEST_F(FocusTrackerRefreshTest, a_result_that_arrives_after_an_application_switch_is_dropped)
{
    startUntilResultIsUnderWay();
    activate(kMail);
    EXPECT_THAT(takeJournal(), ElementsAre("blank", "cleared 8"));
    deliverResult();
    EXPECT_THAT(journal, IsEmpty());
    run();
    EXPECT_THAT(journal, ElementsAre("8/50 500,400 300x200", "pulse"));
}

TEST_F(FocusTrackerRefreshTest, a_result_from_before_a_space_switch_is_dropped)
{
    startUntilResultIsUnderWay();
    workspace.announce(WorkspaceNotification::activeSpaceDidChange);
    EXPECT_THAT(takeJournal(), ElementsAre("blank"));
    deliverResult();
    EXPECT_THAT(journal, IsEmpty());
    run();
    EXPECT_THAT(journal, ElementsAre("7/42 100,400 400x300", "pulse"));
}

TEST_F(FocusTrackerRefreshTest, a_result_from_before_a_change_of_screens_is_dropped)
{
    startUntilResultIsUnderWay();
    screens.announceChange();
    deliverResult();
    EXPECT_THAT(journal, IsEmpty());
    run();
    EXPECT_THAT(journal, ElementsAre("7/42 100,400 400x300", "pulse"));
}

TEST_F(FocusTrackerRefreshTest, a_change_of_screens_restarts_the_link_and_refreshes)
{
    start();
    leaveFastTracking();
    screens.announceChange();
    EXPECT_FALSE(tracker->isFastTracking()) << "it begins no fast tracking of its own";
    run();
    input.pressedButtons = 1;
    input.sendGlobal(EventType::leftMouseDown);
    links.screenLinks.clear();
    const auto queries = queryCount();
    screens.set({{{0, 0, 1000, 900}, DisplayID{1}, 60, 1}});
    screens.announceChange();
    EXPECT_EQ(links.screenLinks.size(), 1U) << "though it is the same display";
    run();
    EXPECT_EQ(queryCount(), queries + 1);
    EXPECT_THAT(journal, ElementsAre("7/42 100,500 400x300"));
}

TEST_F(FocusTrackerRefreshTest, refreshes_while_a_query_runs_make_one_follow_up_after_its_second_turn)
{
    startUntilResultIsUnderWay();
    askForRefresh();
    askForRefresh();
    EXPECT_TRUE(tracker->isQueryInFlight());
    deliverResult();
    EXPECT_THAT(journal, ElementsAre("7/42 100,400 400x300", "pulse"));
    EXPECT_TRUE(tracker->isQueryInFlight());
    EXPECT_EQ(loop.pendingEventCount(), 2U) << "the second turn and the poll, but no other query yet";
    finishQuery();
    EXPECT_TRUE(tracker->isQueryInFlight()) << "now the follow-up";
    run();
    EXPECT_FALSE(tracker->isQueryInFlight());
    EXPECT_EQ(queryCount(), 2U);
}

TEST_F(FocusTrackerRefreshTest, a_query_without_another_refresh_has_no_follow_up)
{
    start();
    EXPECT_FALSE(tracker->isQueryInFlight());
    EXPECT_EQ(queryCount(), 1U);
}

TEST_F(FocusTrackerRefreshTest, an_application_that_answers_slowly_holds_nothing_up)
{
    accessibility.onRead = [this](std::string_view name) {
        if (name == "AXFocusedWindow")
            loop.spend(Seconds(0.25));
    };
    tracker->start();
    loop.runFor(Seconds(0.2));
    EXPECT_THAT(takeJournal(), ElementsAre("cleared 7"));
    EXPECT_EQ(queryCount(), 1U) << "the poll waits for the answer";
    loop.runFor(Seconds(0.06));
    EXPECT_THAT(journal, ElementsAre("7/42 100,400 400x300", "pulse"));
}

} // namespace
} // namespace haloric
