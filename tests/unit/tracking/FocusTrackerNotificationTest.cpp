#include "unit/tracking/FocusTrackerFixture.h"

namespace haloric {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class FocusTrackerNotificationTest : public FocusTrackerFixture {};

TEST_F(FocusTrackerNotificationTest, notifications_of_one_that_is_not_installed_are_ignored)
{
    start();
    leaveFastTracking();
    queues.setSuspended(true); // so that the detached one still lives
    makeFrontmost(kMail);
    askForRefresh();
    ASSERT_TRUE(observer(0).live);
    frames(1.5);
    ASSERT_FALSE(tracker->isFastTracking());
    observer(0).callback("AXWindowMoved");
    EXPECT_FALSE(tracker->isFastTracking());
    queues.setSuspended(false);
    run();
}

TEST_F(FocusTrackerNotificationTest, every_notification_refreshes)
{
    start();
    for (const auto& name : std::vector(observer(0).notifications)) {
        const auto queries = queryCount();
        notify(name);
        run();
        EXPECT_EQ(queryCount(), queries + 1) << name;
    }
}

TEST_F(FocusTrackerNotificationTest, only_moving_and_resizing_start_fast_tracking)
{
    start();
    for (const auto& name : std::vector(observer(0).notifications)) {
        leaveFastTracking();
        notify(name);
        EXPECT_EQ(tracker->isFastTracking(), name == "AXWindowMoved" || name == "AXWindowResized") << name;
    }
}

TEST_F(FocusTrackerNotificationTest, only_resizing_has_the_title_bar_measured_again)
{
    start();
    for (const auto& name : std::vector(observer(0).notifications)) {
        const auto measurements = accessibility.count("AXCloseButton");
        notify(name);
        run();
        EXPECT_EQ(accessibility.count("AXCloseButton"), measurements + (name == "AXWindowResized" ? 1 : 0)) << name;
    }
}

TEST_F(FocusTrackerNotificationTest, a_focus_change_stops_the_watch_and_drops_the_query_under_way)
{
    start();
    for (const char* name : {"AXFocusedWindowChanged", "AXMainWindowChanged"}) {
        journal.clear();
        askForRefresh();
        loop.runNext(); // its result, with the old frame, is under way
        place(kWindow, {0, 0, 100, 100});
        notify(name);
        EXPECT_EQ(tracker->currentWindowID(), WindowNumber::none);
        EXPECT_THAT(library.requestedWindows(), IsEmpty());
        deliverResult();
        EXPECT_THAT(journal, IsEmpty());
        run();
        EXPECT_THAT(journal, ElementsAre("7/42 0,700 100x100"));
        place(kWindow, kBounds);
        poll();
    }
}

TEST_F(FocusTrackerNotificationTest, other_notifications_keep_the_watch_and_the_query_under_way)
{
    start();
    leaveFastTracking();
    askForRefresh();
    loop.runNext();
    place(kWindow, {0, 0, 100, 100});
    notify("AXWindowCreated");
    EXPECT_EQ(tracker->currentWindowID(), kWindow);
    deliverResult();
    EXPECT_THAT(journal, ElementsAre("7/42 0,700 100x100"));
}

TEST_F(FocusTrackerNotificationTest, a_notification_may_detach_the_observation_that_delivers_it)
{
    start();
    journal.clear();
    workspace.frontmost->hidden = true;
    notify("AXApplicationHidden");
    EXPECT_THAT(journal, ElementsAre("blank"));
    run();
    EXPECT_TRUE(observer(0).releasedInsideQueue);
}

} // namespace
} // namespace haloric
