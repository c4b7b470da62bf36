// What an overlay window is, and how the toolkit moves it.
#include "unit/overlay/OverlayWindowFixture.h"

#include <cmath>

namespace haloric {
namespace {

using OverlayWindowTest = OverlayWindowFixture;

TEST_F(OverlayWindowTest, is_made_borderless_transparent_and_click_through)
{
    ToolkitWindowConfiguration expected;
    expected.contentRect = Rect();
    expected.styleMask = 0;
    expected.backing = 2;
    expected.defersCreation = false;
    expected.isOpaque = false;
    expected.hasClearBackground = true;
    expected.hasShadow = false;
    expected.ignoresMouseEvents = true;
    expected.isReleasedWhenClosed = false;
    expected.hidesOnDeactivate = false;
    expected.animationBehavior = 2;
    expected.isExcludedFromWindowsMenu = true;
    expected.collectionBehavior = 330;
    expected.level = 3;
    expected.isMovable = false;
    EXPECT_EQ(record->configuration, expected);
}

TEST_F(OverlayWindowTest, never_takes_focus_and_is_never_pushed_on_screen)
{
    EXPECT_FALSE(record->delegate->canBecomeKey());
    EXPECT_FALSE(record->delegate->canBecomeMain());
    EXPECT_EQ(record->delegate->constrainFrameRect({-500, 9000, 10, 10}), (Rect{-500, 9000, 10, 10}));
}

TEST_F(OverlayWindowTest, starts_with_an_untried_fast_path)
{
    EXPECT_FALSE(window->serverFrame().has_value());
    EXPECT_TRUE(window->transactionMovesAvailable());
    EXPECT_FALSE(window->transactionMovesVerified());
    EXPECT_FALSE(window->transactionVerificationPending());
    EXPECT_EQ(window->lastTransactionMove(), Seconds(0));
    EXPECT_FALSE(window->isVisible());
}

TEST_F(OverlayWindowTest, a_frame_set_by_the_controller_is_not_redisplayed)
{
    window->setFrame({1, 2, 3, 4});
    EXPECT_EQ(record->frame, (Rect{1, 2, 3, 4}));
    EXPECT_FALSE(record->displayedBySetFrame);
    forget();
    window->setFrame({1, 2, 3, 4});
    EXPECT_TRUE(record->calls.empty());
}

TEST_F(OverlayWindowTest, a_frame_that_is_not_finite_is_refused)
{
    show();
    for (const double bad : {std::nan(""), HUGE_VAL, -HUGE_VAL}) {
        const Rect target{100, bad, 300, 200};
        window->setFrame(target);
        moveTo(target);
        window->positionHighlight(target, Positioning::synchronizeWithAppKit);
        EXPECT_TRUE(record->calls.empty()) << bad;
        EXPECT_TRUE(library.calls.empty()) << bad;
        EXPECT_EQ(window->frame(), kStart) << bad;
        EXPECT_TRUE(window->transactionMovesAvailable()) << bad;
    }
}

TEST_F(OverlayWindowTest, a_hidden_window_is_moved_by_the_toolkit)
{
    show();
    window->orderOut();
    forget();
    moveTo(kMoved);
    EXPECT_EQ(record->calls, Calls{"setFrameOrigin"});
    EXPECT_TRUE(library.calls.empty());
    EXPECT_EQ(record->frame, kMoved);
}

TEST_F(OverlayWindowTest, the_toolkit_moves_it_to_synchronize)
{
    show();
    window->positionHighlight(kMoved, Positioning::synchronizeWithAppKit);
    EXPECT_EQ(record->calls, Calls{"setFrameOrigin"});
    EXPECT_TRUE(library.calls.empty());
    EXPECT_FALSE(window->serverFrame().has_value());
}

TEST_F(OverlayWindowTest, a_change_of_size_is_made_by_the_toolkit)
{
    show();
    for (const Rect& target : {Rect{100, 100, 301, 200}, Rect{100, 100, 301, 200.5}}) {
        forget();
        moveTo(target);
        EXPECT_EQ(record->calls, Calls{"setFrame"});
        EXPECT_EQ(record->frame, target);
        EXPECT_FALSE(record->displayedBySetFrame);
        EXPECT_TRUE(library.calls.empty());
    }
}

TEST_F(OverlayWindowTest, a_toolkit_move_first_sets_the_frame_that_the_server_has)
{
    show();
    moveTo(kMoved);
    forget();
    const Rect target{200, 200, 300, 200};
    window->positionHighlight(target, Positioning::synchronizeWithAppKit);
    EXPECT_EQ(record->calls, (Calls{"setFrame", "setFrameOrigin"}));
    EXPECT_EQ(record->frame, target);
    EXPECT_FALSE(record->displayedBySetFrame);
    EXPECT_FALSE(window->serverFrame().has_value());
}

TEST_F(OverlayWindowTest, synchronizing_in_place_only_updates_the_toolkit)
{
    show();
    moveTo(kMoved);
    forget();
    window->positionHighlight(kMoved, Positioning::synchronizeWithAppKit);
    EXPECT_EQ(record->calls, Calls{"setFrame"});
    EXPECT_EQ(record->frame, kMoved);
    EXPECT_FALSE(window->serverFrame().has_value());
}

TEST_F(OverlayWindowTest, a_toolkit_that_has_the_frame_is_not_updated_again)
{
    show();
    moveTo(kMoved);
    moveTo(kStart); // back to where the toolkit believes it to be
    forget();
    window->positionHighlight(kStart, Positioning::synchronizeWithAppKit);
    EXPECT_TRUE(record->calls.empty());
    EXPECT_FALSE(window->serverFrame().has_value());
}

TEST_F(OverlayWindowTest, a_change_of_size_after_a_server_move_resynchronizes_first)
{
    show();
    moveTo(kMoved);
    forget();
    moveTo({105, 93, 310, 200});
    EXPECT_EQ(record->calls, (Calls{"setFrame", "setFrame"}));
    EXPECT_EQ(record->frame, (Rect{105, 93, 310, 200}));
    EXPECT_FALSE(window->serverFrame().has_value());
}

} // namespace
} // namespace haloric
