// When the window server moves an overlay window, and when it may not.
#include "unit/overlay/OverlayWindowFixture.h"

#include <cmath>

namespace haloric {
namespace {

using OverlayWindowFastPathTest = OverlayWindowFixture;

TEST_F(OverlayWindowFastPathTest, makes_no_call_when_it_is_there_already)
{
    show();
    moveTo(kStart);
    window->positionHighlight(kStart, Positioning::synchronizeWithAppKit);
    EXPECT_TRUE(record->calls.empty());
    EXPECT_TRUE(library.calls.empty());
    EXPECT_EQ(runLoop.pendingEventCount(), 0U);
}

TEST_F(OverlayWindowFastPathTest, the_bridge_is_not_made_before_a_move_may_use_it)
{
    window->positionHighlight(kStart, Positioning::synchronizeWithAppKit);
    window->orderFront();
    moveTo({1100, 100, 300, 200}); // another display
    EXPECT_TRUE(library.calls.empty());
    moveTo({1110, 100, 300, 200});
    ASSERT_FALSE(library.calls.empty());
    EXPECT_EQ(library.calls.front(), "load()");
}

TEST_F(OverlayWindowFastPathTest, a_small_move_is_one_transaction_and_one_scheduled_check)
{
    show();
    runLoop.runFor(Seconds(2));
    moveTo(kMoved);
    // From the top of the primary screen, downward: 800 - (93 + 200).
    EXPECT_EQ(library.entryCalls(), (Calls{"SLSMainConnectionID()", "SLSTransactionCreate(77)",
                                           "SLSTransactionMoveWindowWithGroup(tx1, 101, 105, 507)",
                                           "SLSTransactionCommit(tx1)", "release(tx1)"}));
    EXPECT_TRUE(record->calls.empty());
    EXPECT_EQ(window->serverFrame(), kMoved);
    EXPECT_EQ(window->frame(), kMoved);
    EXPECT_EQ(window->lastTransactionMove(), Seconds(2));
    EXPECT_TRUE(window->transactionVerificationPending());
    EXPECT_EQ(runLoop.pendingEventCount(), 1U);
}

TEST_F(OverlayWindowFastPathTest, makes_no_call_when_the_server_put_it_there_already)
{
    show();
    moveTo(kMoved);
    forget();
    moveTo(kMoved);
    EXPECT_TRUE(record->calls.empty());
    EXPECT_TRUE(library.calls.empty());
    EXPECT_EQ(window->serverFrame(), kMoved);
}

TEST_F(OverlayWindowFastPathTest, a_move_to_another_display_is_made_by_the_toolkit)
{
    show();
    moveTo(kMoved);
    forget();
    moveTo({1100, 100, 300, 200});
    EXPECT_TRUE(library.calls.empty());
    EXPECT_EQ(record->calls, (Calls{"setFrame", "setFrameOrigin"}));
    EXPECT_FALSE(window->serverFrame().has_value());
    moveTo({1110, 100, 300, 200});
    EXPECT_TRUE(window->serverFrame().has_value());
}

TEST_F(OverlayWindowFastPathTest, belongs_to_the_display_that_holds_most_of_it_and_in_a_tie_to_the_earlier)
{
    show({800, 100, 300, 200});
    moveTo({850, 100, 300, 200}); // half on each: still the first
    EXPECT_TRUE(window->serverFrame().has_value());
    moveTo({851, 100, 300, 200}); // most on the second
    EXPECT_FALSE(window->serverFrame().has_value());
}

TEST_F(OverlayWindowFastPathTest, a_later_display_must_hold_more_than_the_best_before_it)
{
    screens.set({kPrimary, {{1000, 0, 1000, 400}, DisplayID{2}}, {{1000, 400, 1000, 400}, DisplayID{3}}});
    show({1100, 100, 300, 200});  // on the second
    moveTo({920, 290, 300, 200}); // 80x200 on the first, 220x110 on the second, 220x90 on the third
    EXPECT_TRUE(window->serverFrame().has_value());
}

TEST_F(OverlayWindowFastPathTest, off_every_screen_it_belongs_to_the_first_display)
{
    show();
    moveTo({-5000, -5000, 300, 200});
    EXPECT_TRUE(window->serverFrame().has_value());
}

TEST_F(OverlayWindowFastPathTest, a_display_without_a_number_counts_as_another_display)
{
    screens.set({kPrimary, {kSecondary.frame, std::nullopt}});
    show();
    moveTo({1100, 100, 300, 200});
    EXPECT_TRUE(library.calls.empty());
    EXPECT_FALSE(window->serverFrame().has_value());
}

TEST_F(OverlayWindowFastPathTest, two_displays_without_numbers_count_as_one)
{
    screens.set({{kPrimary.frame, std::nullopt}, {kSecondary.frame, std::nullopt}});
    show();
    moveTo({1100, 100, 300, 200});
    EXPECT_EQ(window->serverFrame(), (Rect{1100, 100, 300, 200}));
}

TEST_F(OverlayWindowFastPathTest, without_screens_the_toolkit_moves_it)
{
    show();
    screens.set({});
    moveTo(kMoved);
    EXPECT_TRUE(library.calls.empty());
    EXPECT_EQ(record->calls, Calls{"setFrameOrigin"});
    EXPECT_TRUE(window->transactionMovesAvailable());
    EXPECT_TRUE(log.lines.empty());
}

TEST_F(OverlayWindowFastPathTest, without_a_window_number_the_toolkit_moves_it_silently)
{
    for (const std::int64_t number : {0, -1}) {
        toolkit.nextNumber = number;
        makeWindow();
        show();
        moveTo(kMoved);
        EXPECT_TRUE(library.calls.empty());
        EXPECT_EQ(record->calls, Calls{"setFrameOrigin"});
        EXPECT_TRUE(window->transactionMovesAvailable());
        EXPECT_TRUE(log.lines.empty());
    }
}

TEST_F(OverlayWindowFastPathTest, a_failed_transaction_ends_the_fast_path_permanently)
{
    show();
    library.failOnCall("SLSTransactionCreate", 1);
    moveTo(kMoved);
    ASSERT_FALSE(log.lines.empty());
    EXPECT_EQ(log.lines.back(), kUnavailable);
    EXPECT_EQ(record->calls, Calls{"setFrameOrigin"});
    EXPECT_EQ(record->frame, kMoved);
    EXPECT_FALSE(window->transactionMovesAvailable());
    EXPECT_FALSE(window->serverFrame().has_value());
    EXPECT_FALSE(window->transactionVerificationPending());

    forget();
    moveTo(kStart);
    EXPECT_EQ(record->calls, Calls{"setFrameOrigin"});
    EXPECT_TRUE(library.calls.empty());
    EXPECT_TRUE(log.lines.empty());
}

TEST_F(OverlayWindowFastPathTest, a_transaction_that_fails_after_others_succeeded_is_made_up_for_by_the_toolkit)
{
    show();
    moveTo(kMoved);
    library.failOnCall("SLSTransactionCreate", 1);
    forget();
    moveTo({110, 80, 300, 200});
    EXPECT_EQ(record->calls, (Calls{"setFrame", "setFrameOrigin"}));
    EXPECT_EQ(record->frame, (Rect{110, 80, 300, 200}));
    EXPECT_FALSE(window->serverFrame().has_value());
}

TEST_F(OverlayWindowFastPathTest, a_new_window_starts_with_an_untried_fast_path_again)
{
    show();
    library.failOnCall("SLSTransactionCreate", 1);
    moveTo(kMoved);
    makeWindow();
    show();
    moveTo(kMoved);
    EXPECT_EQ(window->serverFrame(), kMoved);
}

TEST_F(OverlayWindowFastPathTest, the_smallest_difference_of_the_origin_is_a_move)
{
    show();
    moveTo({std::nextafter(kStart.x, 200), kStart.y, kStart.width, kStart.height});
    EXPECT_EQ(library.callCount("SLSTransactionCommit"), 1U);
    forget();
    moveTo(window->frame());
    EXPECT_TRUE(library.calls.empty());
}

TEST_F(OverlayWindowFastPathTest, the_smallest_difference_of_the_size_is_made_by_the_toolkit)
{
    show();
    moveTo({kStart.x, kStart.y, kStart.width, std::nextafter(kStart.height, 300)});
    EXPECT_EQ(record->calls, Calls{"setFrame"});
    EXPECT_TRUE(library.calls.empty());
}

TEST_F(OverlayWindowFastPathTest, positions_count_from_the_upper_edge_of_a_first_screen_that_does_not_start_at_zero)
{
    screens.set({Screen{{0, -150, 1000, 800}, DisplayID{1}}});
    show();
    moveTo(kMoved);
    EXPECT_EQ(library.bounds.at(WindowNumber{static_cast<std::uint32_t>(record->number)}),
              flippedVertically(kMoved, 650));
    runLoop.runFor(OverlayWindow::kVerificationDelay);
    EXPECT_TRUE(window->transactionMovesVerified());
}

} // namespace
} // namespace haloric
