#include "unit/tracking/FocusTrackerFixture.h"

namespace haloric {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class FocusTrackerObservationTest : public FocusTrackerFixture {};

TEST_F(FocusTrackerObservationTest, it_is_made_after_the_result_is_on_its_way_and_installed_in_the_second_turn)
{
    tracker->start();
    loop.runNext();
    EXPECT_EQ(accessibility.calls.back(), "observe 7") << "after the whole query";
    EXPECT_THAT(observer(0).runLoop, IsEmpty());
    deliverResult();
    EXPECT_THAT(observer(0).runLoop, IsEmpty());
    finishQuery();
    EXPECT_THAT(observer(0).runLoop, ElementsAre("add"));
    EXPECT_THAT(observer(0).elements, testing::Each(AXElement(axApplication(kEditor))));
}

TEST_F(FocusTrackerObservationTest, there_is_one_for_a_process)
{
    start();
    poll();
    poll();
    EXPECT_EQ(accessibility.observers.size(), 1U);
}

TEST_F(FocusTrackerObservationTest, it_is_made_for_an_application_that_has_no_window_or_does_not_answer)
{
    focusNothing(kEditor);
    stopAnswering(kMail);
    start();
    EXPECT_EQ(observer(0).pid, kEditor);
    activate(kMail);
    run();
    EXPECT_EQ(observer(1).pid, kMail);
    EXPECT_TRUE(observer(1).onRunLoop);
}

TEST_F(FocusTrackerObservationTest, an_application_without_an_element_is_not_observed)
{
    accessibility.applications.clear();
    start();
    EXPECT_EQ(accessibility.count("observe 7"), 0U);
}

TEST_F(FocusTrackerObservationTest, a_failed_one_is_tried_again_by_the_next_query)
{
    accessibility.refusesObservers = true;
    start();
    EXPECT_EQ(accessibility.count("observe 7"), 1U);
    accessibility.refusesObservers = false;
    poll();
    EXPECT_EQ(accessibility.count("observe 7"), 2U);
    EXPECT_TRUE(observer(0).onRunLoop);
}

TEST_F(FocusTrackerObservationTest, notifications_that_it_lacks_are_added_by_the_next_answered_query)
{
    accessibility.refusedNotifications["AXWindowMoved"] = AXError::cannotComplete;
    start();
    ASSERT_EQ(observer(0).notifications.size(), 10U);
    accessibility.refusedNotifications.clear();

    stopAnswering(kEditor);
    poll();
    EXPECT_EQ(observer(0).notifications.size(), 10U) << "the application does not answer";
    focus(kEditor, editorWindow);
    poll();
    ASSERT_EQ(observer(0).notifications.size(), 11U);
    EXPECT_EQ(observer(0).notifications.back(), "AXWindowMoved");
    EXPECT_EQ(observer(0).elements.back(), AXElement(axApplication(kEditor)));
    poll();
    EXPECT_EQ(observer(0).notifications.size(), 11U);
    EXPECT_EQ(accessibility.observers.size(), 1U);
}

TEST_F(FocusTrackerObservationTest, one_that_lacks_notifications_may_be_released_before_the_next_query)
{
    accessibility.refusedNotifications["AXWindowMoved"] = AXError::cannotComplete;
    start();
    poll();
    askForRefresh();
    activate(kMail); // while the query of the editor waits in the queue
    run();
    EXPECT_TRUE(observer(0).releasedInsideQueue);
    EXPECT_EQ(observer(1).pid, kMail);
}

TEST_F(FocusTrackerObservationTest, one_made_under_an_older_generation_is_released_without_being_installed)
{
    startUntilResultIsUnderWay();
    screens.announceChange();
    deliverResult();
    finishQuery();
    EXPECT_TRUE(observer(0).live) << "it waits for the queue";
    run();
    EXPECT_THAT(observer(0).runLoop, IsEmpty());
    EXPECT_TRUE(observer(0).releasedInsideQueue);
    EXPECT_TRUE(observer(1).onRunLoop) << "the follow-up made another";
}

TEST_F(FocusTrackerObservationTest, one_made_for_an_application_that_was_left_is_released_without_being_installed)
{
    startUntilResultIsUnderWay();
    activate(kMail);
    run();
    EXPECT_THAT(observer(0).runLoop, IsEmpty());
    EXPECT_TRUE(observer(0).releasedInsideQueue);
    EXPECT_EQ(observer(1).pid, kMail);
    EXPECT_TRUE(observer(1).onRunLoop);
}

TEST_F(FocusTrackerObservationTest, a_switch_detaches_the_old_one_before_the_new_application_is_queried)
{
    start();
    bool detachedInTime = false;
    accessibility.onRead = [&](std::string_view name) {
        if (name == "AXFocusedWindow")
            detachedInTime = !observer(0).onRunLoop && !observer(0).live;
    };
    activate(kMail);
    EXPECT_THAT(observer(0).runLoop, ElementsAre("add", "remove"));
    EXPECT_TRUE(observer(0).live) << "only the queue releases it";
    run();
    EXPECT_TRUE(detachedInTime);
    EXPECT_TRUE(observer(0).releasedInsideQueue);
    EXPECT_FALSE(observer(0).releasedWhileOnRunLoop);
}

TEST_F(FocusTrackerObservationTest, another_space_keeps_it)
{
    start();
    workspace.announce(WorkspaceNotification::activeSpaceDidChange);
    run();
    EXPECT_EQ(accessibility.observers.size(), 1U);
    EXPECT_TRUE(observer(0).onRunLoop);
}

} // namespace
} // namespace haloric
