#include "WindowServerFixture.h"

namespace haloric {
namespace {

class WindowServerDeliveryTest : public WindowServerFixture {
protected:
    using Changes = WindowServer::Changes;
    using Deliveries = std::vector<Delivery>;
};

TEST_F(WindowServerDeliveryTest, each_event_number_has_its_kind_of_change)
{
    watch(kWindow);
    for (const Event event : kWindowServerEvents) {
        EXPECT_TRUE(library.notify(event, kWindow));
        loop.runPosted();
    }
    EXPECT_EQ(deliveries, (Deliveries{{kWindow, Changes::other},
                                      {kWindow, Changes::moved},
                                      {kWindow, Changes::resized},
                                      {kWindow, Changes::other}}));
}

TEST_F(WindowServerDeliveryTest, an_unknown_event_is_ignored)
{
    watch(kWindow);
    for (const std::uint32_t event : {0U, 803U, 805U, 808U, 815U, 817U, 0xFFFFFFFFU})
        EXPECT_TRUE(library.notifyAnyway(Event{event}, kWindow));
    EXPECT_EQ(loop.pendingEventCount(), 0U);
}

TEST_F(WindowServerDeliveryTest, three_notifications_in_one_turn_make_one_delivery_with_their_union)
{
    watch(kWindow);
    library.notify(Event::moved, kWindow);
    library.notify(Event::resized, kWindow);
    library.notify(Event::moved, kWindow);
    EXPECT_EQ(loop.pendingEventCount(), 1U);
    loop.runPosted();
    EXPECT_EQ(deliveries, (Deliveries{{kWindow, {Changes::moved, Changes::resized}}}));
}

TEST_F(WindowServerDeliveryTest, nothing_is_delivered_inside_the_notification)
{
    watch(kWindow);
    library.notify(Event::moved, kWindow);
    EXPECT_TRUE(deliveries.empty());
}

TEST_F(WindowServerDeliveryTest, changes_after_a_delivery_make_the_next_one_without_the_old_ones)
{
    watch(kWindow);
    library.notify(Event::moved, kWindow);
    loop.runPosted();
    library.notify(Event::resized, kWindow);
    loop.runPosted();
    EXPECT_EQ(deliveries, (Deliveries{{kWindow, Changes::moved}, {kWindow, Changes::resized}}));
}

TEST_F(WindowServerDeliveryTest, a_notification_of_another_window_is_dropped)
{
    watch(kWindow);
    library.notify(Event::moved, kOtherWindow);
    library.notify(Event::moved, WindowNumber::none);
    EXPECT_EQ(loop.pendingEventCount(), 0U);
}

TEST_F(WindowServerDeliveryTest, a_notification_while_nothing_is_watched_is_dropped)
{
    watch(kWindow);
    watch(WindowNumber::none);
    library.notifyAnyway(Event::moved, kWindow);
    library.notifyAnyway(Event::moved, WindowNumber::none);
    EXPECT_EQ(loop.pendingEventCount(), 0U);
}

TEST_F(WindowServerDeliveryTest, a_delivery_queued_before_another_watch_does_nothing)
{
    watch(kWindow);
    library.notify(Event::moved, kWindow);
    watch(kOtherWindow);
    loop.runPosted();
    EXPECT_TRUE(deliveries.empty());
}

TEST_F(WindowServerDeliveryTest, a_delivery_queued_before_the_same_window_was_watched_again_does_nothing)
{
    watch(kWindow);
    library.notify(Event::moved, kWindow);
    watch(kWindow);
    library.notify(Event::resized, kWindow); // queues its own delivery beside the stale one
    EXPECT_EQ(loop.pendingEventCount(), 2U);
    loop.runPosted();
    EXPECT_EQ(deliveries, (Deliveries{{kWindow, Changes::resized}}));
}

TEST_F(WindowServerDeliveryTest, the_delivery_line_is_logged_once_and_only_for_movement)
{
    watch(kWindow);
    library.notify(Event::destroyed, kWindow);
    loop.runPosted();
    EXPECT_EQ(log.lines, Lines{kEnabledLine});
    library.notify(Event::resized, kWindow);
    library.notify(Event::orderedOut, kWindow);
    loop.runPosted();
    EXPECT_EQ(log.lines, (Lines{kEnabledLine, kDeliveryLine}));
    library.notify(Event::moved, kWindow);
    loop.runPosted();
    EXPECT_EQ(log.lines, (Lines{kEnabledLine, kDeliveryLine}));
}

TEST_F(WindowServerDeliveryTest, the_delivery_line_comes_before_the_handler)
{
    std::size_t linesAtDelivery = 0;
    bridge().observe(kWindow, [&](WindowNumber, Changes) { linesAtDelivery = log.lines.size(); });
    library.notify(Event::moved, kWindow);
    loop.runPosted();
    EXPECT_EQ(linesAtDelivery, 2U);
}

TEST_F(WindowServerDeliveryTest, a_watch_without_a_handler_still_logs_its_movement)
{
    bridge().observe(kWindow, nullptr);
    library.notify(Event::moved, kWindow);
    loop.runPosted();
    EXPECT_EQ(log.lines, (Lines{kEnabledLine, kDeliveryLine}));
}

} // namespace
} // namespace haloric
