#include "WindowServerFixture.h"

#include <array>
#include <cstring>

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
    for (const std::uint32_t event : {804U, 806U, 807U, 816U}) {
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
        library.notifyRaw(event, &kWindow, 4);
    EXPECT_EQ(loop.pendingEventCount(), 0U);
}

TEST_F(WindowServerDeliveryTest, three_notifications_in_one_turn_make_one_delivery_with_their_union)
{
    watch(kWindow);
    library.notify(806, kWindow);
    library.notify(807, kWindow);
    library.notify(806, kWindow);
    EXPECT_EQ(loop.pendingEventCount(), 1U);
    loop.runPosted();
    EXPECT_EQ(deliveries, (Deliveries{{kWindow, {Changes::moved, Changes::resized}}}));
}

TEST_F(WindowServerDeliveryTest, nothing_is_delivered_inside_the_notification)
{
    watch(kWindow);
    library.notify(806, kWindow);
    EXPECT_TRUE(deliveries.empty());
}

TEST_F(WindowServerDeliveryTest, changes_after_a_delivery_make_the_next_one_without_the_old_ones)
{
    watch(kWindow);
    library.notify(806, kWindow);
    loop.runPosted();
    library.notify(807, kWindow);
    loop.runPosted();
    EXPECT_EQ(deliveries, (Deliveries{{kWindow, Changes::moved}, {kWindow, Changes::resized}}));
}

TEST_F(WindowServerDeliveryTest, a_notification_of_another_window_is_dropped)
{
    watch(kWindow);
    library.notify(806, kOtherWindow);
    library.notify(806, WindowNumber::none);
    EXPECT_EQ(loop.pendingEventCount(), 0U);
}

TEST_F(WindowServerDeliveryTest, a_notification_while_nothing_is_watched_is_dropped)
{
    watch(kWindow);
    watch(WindowNumber::none);
    library.notifyRaw(806, &kWindow, 4);
    const WindowNumber none{};
    library.notifyRaw(806, &none, 4);
    EXPECT_EQ(loop.pendingEventCount(), 0U);
}

TEST_F(WindowServerDeliveryTest, short_or_missing_data_is_ignored)
{
    watch(kWindow);
    library.notifyRaw(806, nullptr, 12);
    for (const std::int64_t length : {3, 0, -1})
        library.notifyRaw(806, &kWindow, length);
    EXPECT_EQ(loop.pendingEventCount(), 0U);
    library.notifyRaw(806, &kWindow, 4);
    EXPECT_EQ(loop.pendingEventCount(), 1U);
}

TEST_F(WindowServerDeliveryTest, the_data_need_not_be_aligned)
{
    watch(kWindow);
    std::array<std::byte, 9> data{};
    std::memcpy(data.data() + 1, &kWindow, sizeof kWindow);
    library.notifyRaw(806, data.data() + 1, 8);
    loop.runPosted();
    EXPECT_EQ(deliveries.size(), 1U);
}

TEST_F(WindowServerDeliveryTest, a_delivery_queued_before_another_watch_does_nothing)
{
    watch(kWindow);
    library.notify(806, kWindow);
    watch(kOtherWindow);
    loop.runPosted();
    EXPECT_TRUE(deliveries.empty());
}

TEST_F(WindowServerDeliveryTest, a_delivery_queued_before_the_same_window_was_watched_again_does_nothing)
{
    watch(kWindow);
    library.notify(806, kWindow);
    watch(kWindow);
    library.notify(807, kWindow); // queues its own delivery beside the stale one
    EXPECT_EQ(loop.pendingEventCount(), 2U);
    loop.runPosted();
    EXPECT_EQ(deliveries, (Deliveries{{kWindow, Changes::resized}}));
}

TEST_F(WindowServerDeliveryTest, the_delivery_line_is_logged_once_and_only_for_movement)
{
    watch(kWindow);
    library.notify(804, kWindow);
    loop.runPosted();
    EXPECT_EQ(log.lines, Lines{kEnabledLine});
    library.notify(807, kWindow);
    library.notify(816, kWindow);
    loop.runPosted();
    EXPECT_EQ(log.lines, (Lines{kEnabledLine, kDeliveryLine}));
    library.notify(806, kWindow);
    loop.runPosted();
    EXPECT_EQ(log.lines, (Lines{kEnabledLine, kDeliveryLine}));
}

TEST_F(WindowServerDeliveryTest, the_delivery_line_comes_before_the_handler)
{
    std::size_t linesAtDelivery = 0;
    bridge().observe(kWindow, [&](WindowNumber, Changes) { linesAtDelivery = log.lines.size(); });
    library.notify(806, kWindow);
    loop.runPosted();
    EXPECT_EQ(linesAtDelivery, 2U);
}

TEST_F(WindowServerDeliveryTest, a_watch_without_a_handler_still_logs_its_movement)
{
    bridge().observe(kWindow, nullptr);
    library.notify(806, kWindow);
    loop.runPosted();
    EXPECT_EQ(log.lines, (Lines{kEnabledLine, kDeliveryLine}));
}

} // namespace
} // namespace haloric
