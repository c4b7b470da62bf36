#include "unit/tracking/FocusTrackerFixture.h"

namespace haloric {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Event = WindowServerEvent;

class FocusTrackerWindowServerTest : public FocusTrackerFixture {
protected:
    void startAndRest()
    {
        start();
        leaveFastTracking();
    }
};

TEST_F(FocusTrackerWindowServerTest, a_move_is_published_at_once_and_starts_fast_tracking)
{
    startAndRest();
    const auto queries = queryCount();
    place(kWindow, {110, 120, 400, 300});
    notifyWindowServer(Event::moved);
    EXPECT_THAT(journal, ElementsAre("7/42 110,380 400x300"));
    EXPECT_EQ(tracker->state().titleBar, FocusState::TitleBar::height(28));
    EXPECT_TRUE(tracker->isFastTracking());
    EXPECT_EQ(queryCount(), queries) << "no query is needed";
}

TEST_F(FocusTrackerWindowServerTest, a_move_to_another_screen_moves_the_link_along)
{
    start();
    links.screenLinks.clear();
    place(kWindow, {1100, 100, 400, 300});
    notifyWindowServer(Event::moved);
    EXPECT_THAT(links.screenLinks, ElementsAre(kSecondary));
    notifyWindowServer(Event::moved);
    EXPECT_EQ(links.screenLinks.size(), 1U);
}

TEST_F(FocusTrackerWindowServerTest, fast_tracking_begins_on_the_screen_that_the_window_moved_to)
{
    startAndRest();
    links.screenLinks.clear();
    place(kWindow, {1100, 100, 400, 300});
    notifyWindowServer(Event::moved);
    EXPECT_THAT(links.screenLinks, ElementsAre(kSecondary));
}

TEST_F(FocusTrackerWindowServerTest, a_resize_has_the_title_bar_measured_again_by_the_next_query)
{
    startAndRest();
    const auto measurements = accessibility.count("AXCloseButton");
    notifyWindowServer(Event::moved);
    poll();
    EXPECT_EQ(accessibility.count("AXCloseButton"), measurements);
    notifyWindowServer(Event::resized);
    poll();
    EXPECT_EQ(accessibility.count("AXCloseButton"), measurements + 1);
}

TEST_F(FocusTrackerWindowServerTest, the_lists_bounds_stand_in_for_the_window_servers)
{
    startAndRest();
    info(kWindow).bounds = Rect{0, 0, 200, 100};
    library.bounds.erase(kWindow);
    notifyWindowServer(Event::moved);
    EXPECT_THAT(journal, ElementsAre("7/42 0,700 200x100"));
}

TEST_F(FocusTrackerWindowServerTest, a_window_that_is_closed_when_its_movement_is_reported_is_cleared)
{
    startAndRest();
    const auto queries = queryCount();
    destroyWindow(kWindow);
    notifyWindowServer(Event::moved);
    EXPECT_THAT(journal, ElementsAre("cleared 7"));
    EXPECT_EQ(tracker->currentWindowID(), WindowNumber::none);
    EXPECT_THAT(library.requestedWindows(), IsEmpty());
    EXPECT_EQ(queryCount(), queries + 1);
    EXPECT_FALSE(tracker->isFastTracking());
}

TEST_F(FocusTrackerWindowServerTest, another_change_clears_the_window_and_queries_again)
{
    startAndRest();
    for (const auto event : {Event::destroyed, Event::orderedOut}) {
        const auto queries = queryCount();
        library.notify(Event::moved, kWindow);
        notifyWindowServer(event);
        EXPECT_THAT(takeJournal(), ElementsAre("cleared 7", "7/42 100,400 400x300"));
        EXPECT_EQ(queryCount(), queries + 1);
        EXPECT_EQ(tracker->currentWindowID(), kWindow) << "watched again";
    }
}

TEST_F(FocusTrackerWindowServerTest, another_change_drops_the_query_under_way)
{
    startAndRest();
    askForRefresh();
    library.notify(Event::destroyed, kWindow); // delivered after the query, and before its result
    loop.runNext();
    loop.runNext();
    EXPECT_THAT(takeJournal(), ElementsAre("cleared 7"));
    deliverResult();
    EXPECT_THAT(journal, IsEmpty());
    run();
    EXPECT_THAT(journal, ElementsAre("7/42 100,400 400x300"));
}

TEST_F(FocusTrackerWindowServerTest, a_move_keeps_the_query_under_way)
{
    startAndRest();
    askForRefresh();
    library.notify(Event::moved, kWindow);
    place(kWindow, {0, 0, 100, 100});
    const auto queries = queryCount();
    run();
    EXPECT_EQ(queryCount(), queries + 1) << "without a follow-up";
    EXPECT_THAT(journal, ElementsAre("7/42 0,700 100x100"));
}

TEST_F(FocusTrackerWindowServerTest, a_delivery_for_the_window_before_does_nothing)
{
    startAndRest();
    library.notify(Event::moved, kWindow);
    place(kWindow, {0, 0, 100, 100});
    notify("AXFocusedWindowChanged"); // the watch ends
    loop.runNext();
    EXPECT_THAT(journal, IsEmpty());
    EXPECT_FALSE(tracker->isFastTracking());
}

TEST_F(FocusTrackerWindowServerTest, nothing_is_reported_after_the_stop)
{
    startAndRest();
    library.notify(Event::moved, kWindow);
    place(kWindow, {0, 0, 100, 100});
    tracker->stop();
    run();
    EXPECT_THAT(journal, IsEmpty());
}

TEST_F(FocusTrackerWindowServerTest, the_bridge_is_not_made_before_there_is_a_window_to_follow)
{
    accessibility.trusted = false;
    start();
    poll();
    tracker->stop();
    EXPECT_THAT(library.calls, IsEmpty());

    accessibility.trusted = true;
    start();
    ASSERT_EQ(tracker->currentWindowID(), kWindow);
    EXPECT_THAT(library.calls, testing::Contains("load()").Times(1));
}

TEST_F(FocusTrackerWindowServerTest, a_refused_watch_changes_nothing_else)
{
    library.failAlways("SLSRequestNotificationsForWindows");
    start();
    EXPECT_EQ(tracker->currentWindowID(), kWindow);
    EXPECT_EQ(describe(tracker->state()), "7/42 100,400 400x300");
}

} // namespace
} // namespace haloric
