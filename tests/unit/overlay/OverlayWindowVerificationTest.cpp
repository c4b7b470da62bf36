// The one check of whether server moves really move the window.
#include "unit/overlay/OverlayWindowFixture.h"

namespace haloric {
namespace {

class OverlayWindowVerificationTest : public OverlayWindowFixture {
protected:
    static Rect movedBy(double dx) { return kStart.translatedBy(dx, 0); }
    std::size_t checks() const { return library.callCount("SLSGetWindowBounds"); }
    bool logged(const char* line) const { return std::ranges::count(log.lines, line) > 0; }
};

TEST_F(OverlayWindowVerificationTest, verifies_once_after_fifty_milliseconds)
{
    show();
    moveTo(movedBy(5));
    runLoop.runFor(Seconds(0.049));
    EXPECT_EQ(checks(), 0U);
    runLoop.runFor(Seconds(0.001));
    EXPECT_EQ(checks(), 1U);
    EXPECT_TRUE(window->transactionMovesVerified());
    EXPECT_FALSE(window->transactionVerificationPending());
    EXPECT_EQ(log.lines.back(), kVerified);

    forget();
    moveTo(movedBy(9));
    EXPECT_FALSE(window->transactionVerificationPending());
    runLoop.runFor(Seconds(1));
    EXPECT_EQ(checks(), 1U);
    EXPECT_TRUE(log.lines.empty());
    EXPECT_EQ(window->serverFrame(), movedBy(9));
}

TEST_F(OverlayWindowVerificationTest, reads_its_own_bounds_by_number)
{
    show();
    moveTo(movedBy(5));
    library.forgetCalls();
    runLoop.runFor(Seconds(0.05));
    EXPECT_EQ(library.entryCalls(), (Calls{"SLSMainConnectionID()", "SLSGetWindowBounds(77, 101)"}));
}

TEST_F(OverlayWindowVerificationTest, moves_in_quick_succession_keep_postponing_it)
{
    show();
    for (int i = 1; i <= 40; ++i) {
        moveTo(movedBy(i));
        EXPECT_TRUE(window->transactionVerificationPending());
        EXPECT_EQ(runLoop.pendingEventCount(), 1U);
        runLoop.runFor(Seconds(0.016));
    }
    EXPECT_EQ(checks(), 0U);
    runLoop.runFor(Seconds(0.1));
    EXPECT_EQ(checks(), 1U);
    EXPECT_TRUE(window->transactionMovesVerified());
}

TEST_F(OverlayWindowVerificationTest, bounds_less_than_half_a_point_away_match)
{
    library.moveOffset = {0.49, -0.49};
    show();
    moveTo(movedBy(5));
    runLoop.runFor(Seconds(0.05));
    EXPECT_TRUE(window->transactionMovesVerified());
}

TEST_F(OverlayWindowVerificationTest, bounds_half_a_point_away_in_either_axis_end_the_fast_path)
{
    for (const Point offset : {Point{0.5, 0}, Point{-0.5, 0}, Point{0, 0.5}, Point{0, -0.5}}) {
        makeWindow();
        library.moveOffset = offset;
        show();
        moveTo(movedBy(5));
        runLoop.runFor(Seconds(0.1)); // uptimes as doubles may make the first look come a hair too early
        EXPECT_FALSE(window->transactionMovesVerified());
        EXPECT_FALSE(window->transactionMovesAvailable());
        EXPECT_FALSE(window->transactionVerificationPending());
        EXPECT_EQ(log.lines, Calls{kMismatch});

        // Put right through the toolkit, whose frame was the one before the move.
        EXPECT_EQ(record->calls, Calls{"setFrame"});
        EXPECT_EQ(record->frame, movedBy(5));
        EXPECT_FALSE(window->serverFrame().has_value());

        forget();
        moveTo(movedBy(50));
        runLoop.runFor(Seconds(1));
        EXPECT_EQ(record->calls, Calls{"setFrameOrigin"});
        EXPECT_TRUE(library.calls.empty());
        EXPECT_TRUE(log.lines.empty());
    }
}

TEST_F(OverlayWindowVerificationTest, a_server_that_ignores_moves_is_found_out)
{
    library.ignoresMoves = true;
    show();
    moveTo(movedBy(5));
    EXPECT_EQ(window->serverFrame(), movedBy(5));
    runLoop.runFor(Seconds(0.05));
    EXPECT_TRUE(logged(kMismatch));
    EXPECT_EQ(record->frame, movedBy(5));
}

TEST_F(OverlayWindowVerificationTest, no_bounds_count_as_a_mismatch)
{
    show();
    moveTo(movedBy(5));
    library.failAlways("SLSGetWindowBounds");
    runLoop.runFor(Seconds(0.05));
    EXPECT_FALSE(window->transactionMovesAvailable());
    EXPECT_EQ(log.lines, Calls{kMismatch});
}

TEST_F(OverlayWindowVerificationTest, stops_without_a_verdict_when_there_is_nothing_to_check)
{
    const std::vector<std::function<void()>> disturbances{
        [this] { window->orderOut(); },
        [this] { window->positionHighlight(kStart, Positioning::synchronizeWithAppKit); },
        [this] { screens.set({}); },
    };
    for (const auto& disturb : disturbances) {
        screens.set({kPrimary, kSecondary});
        makeWindow();
        show();
        moveTo(movedBy(5));
        disturb();
        runLoop.runFor(Seconds(1));
        EXPECT_EQ(checks(), 0U);
        EXPECT_TRUE(window->transactionMovesAvailable());
        EXPECT_FALSE(window->transactionMovesVerified());
        EXPECT_FALSE(window->transactionVerificationPending());
        EXPECT_TRUE(log.lines.empty());
        EXPECT_EQ(runLoop.pendingEventCount(), 0U);
    }
}

TEST_F(OverlayWindowVerificationTest, is_scheduled_again_by_the_next_move_after_it_stopped)
{
    show();
    moveTo(movedBy(5));
    window->orderOut();
    runLoop.runFor(Seconds(1));
    window->orderFront();
    moveTo(movedBy(9));
    EXPECT_TRUE(window->transactionVerificationPending());
    runLoop.runFor(Seconds(0.1));
    EXPECT_TRUE(window->transactionMovesVerified());
}

TEST_F(OverlayWindowVerificationTest, a_destroyed_window_is_not_checked)
{
    show();
    moveTo(movedBy(5));
    window.reset();
    runLoop.runFor(Seconds(1));
    EXPECT_EQ(checks(), 0U);
    EXPECT_TRUE(log.lines.empty());
}

} // namespace
} // namespace haloric
