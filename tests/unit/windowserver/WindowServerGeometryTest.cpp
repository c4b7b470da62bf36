#include "WindowServerFixture.h"

#include <cmath>
#include <limits>

namespace haloric {
namespace {

class WindowServerGeometryTest : public WindowServerFixture {
protected:
    static constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
    static constexpr double kInfinity = std::numeric_limits<double>::infinity();

    static constexpr const char* kCreationFailed =
        "WindowServer overlay transaction failed: transaction creation failed";
    static constexpr const char* kSymbolMissing =
        "WindowServer overlay transaction failed: required symbol unavailable";

    std::optional<Rect> boundsWhenServerSays(const Rect& rect)
    {
        library.bounds[kWindow] = rect;
        return bridge().bounds(kWindow);
    }
};

TEST_F(WindowServerGeometryTest, bounds_come_unchanged_from_the_server)
{
    const Rect rect{-1920.5, 25.25, 640.125, 480};
    EXPECT_EQ(boundsWhenServerSays(rect), rect);
    EXPECT_EQ(library.entryCalls(), (Calls{"SLSMainConnectionID()", "SLSGetWindowBounds(77, 42)"}));
}

TEST_F(WindowServerGeometryTest, no_window_has_no_bounds_and_costs_no_call)
{
    library.bounds[WindowNumber::none] = {0, 0, 100, 100};
    EXPECT_FALSE(bridge().bounds(WindowNumber::none).has_value());
    EXPECT_TRUE(library.entryCalls().empty());
}

TEST_F(WindowServerGeometryTest, an_error_gives_no_bounds)
{
    library.bounds[kWindow] = {0, 0, 100, 100};
    bridge();
    library.failOnCall("SLSGetWindowBounds", 1);
    EXPECT_FALSE(bridge().bounds(kWindow).has_value());
    EXPECT_TRUE(bridge().bounds(kWindow).has_value()) << "bounds go on being asked for after an error";
    EXPECT_FALSE(bridge().bounds(kOtherWindow).has_value());
}

TEST_F(WindowServerGeometryTest, bounds_need_both_their_entries)
{
    library.bounds[kWindow] = {0, 0, 100, 100};
    for (const char* symbol : {"SLSMainConnectionID", "SLSGetWindowBounds"}) {
        library.missingSymbols = {symbol};
        const WindowServer incomplete(library, processes, loop, log);
        EXPECT_FALSE(incomplete.bounds(kWindow).has_value()) << symbol;
    }
    EXPECT_TRUE(library.entryCalls().empty());
}

TEST_F(WindowServerGeometryTest, bounds_that_are_not_finite_are_none)
{
    for (const double odd : {kNaN, kInfinity, -kInfinity}) {
        EXPECT_FALSE(boundsWhenServerSays({odd, 0, 10, 10}).has_value());
        EXPECT_FALSE(boundsWhenServerSays({0, odd, 10, 10}).has_value());
        EXPECT_FALSE(boundsWhenServerSays({0, 0, odd, 10}).has_value());
        EXPECT_FALSE(boundsWhenServerSays({0, 0, 10, odd}).has_value());
    }
}

TEST_F(WindowServerGeometryTest, both_sides_must_exceed_one_point)
{
    EXPECT_FALSE(boundsWhenServerSays({0, 0, 1, 500}).has_value());
    EXPECT_FALSE(boundsWhenServerSays({0, 0, 500, 1}).has_value());
    EXPECT_FALSE(boundsWhenServerSays({0, 0, -5, 500}).has_value());
    EXPECT_TRUE(boundsWhenServerSays({0, 0, std::nextafter(1.0, 2.0), 500}).has_value());
    EXPECT_TRUE(boundsWhenServerSays({0, 0, 500, std::nextafter(1.0, 2.0)}).has_value());
}

TEST_F(WindowServerGeometryTest, a_move_is_one_transaction_that_is_released_after_its_commit)
{
    library.bounds[kWindow] = {0, 0, 100, 100};
    EXPECT_TRUE(bridge().move(kWindow, {10.5, -20}));
    EXPECT_EQ(library.entryCalls(), (Calls{"SLSMainConnectionID()", "SLSTransactionCreate(77)",
                                           "SLSTransactionMoveWindowWithGroup(tx1, 42, 10.5, -20)",
                                           "SLSTransactionCommit(tx1)", "release(tx1)"}));
    EXPECT_EQ(bridge().bounds(kWindow), (Rect{10.5, -20, 100, 100}));
    EXPECT_TRUE(log.lines.empty());
}

TEST_F(WindowServerGeometryTest, what_moving_and_committing_give_is_not_looked_at)
{
    bridge();
    library.failAlways("SLSTransactionMoveWindowWithGroup");
    library.failAlways("SLSTransactionCommit");
    EXPECT_TRUE(bridge().move(kWindow, {1, 2}));
    EXPECT_EQ(library.releasedTransactions(), 1U);
    EXPECT_TRUE(log.lines.empty());
}

TEST_F(WindowServerGeometryTest, a_move_of_no_window_or_to_no_finite_point_is_refused_silently)
{
    EXPECT_FALSE(bridge().move(WindowNumber::none, {1, 2}));
    for (const double odd : {kNaN, kInfinity, -kInfinity}) {
        EXPECT_FALSE(bridge().move(kWindow, {odd, 2}));
        EXPECT_FALSE(bridge().move(kWindow, {1, odd}));
    }
    EXPECT_TRUE(library.entryCalls().empty());
    EXPECT_TRUE(log.lines.empty());
}

TEST_F(WindowServerGeometryTest, such_a_move_is_silent_even_without_the_entries)
{
    library.canBeOpened = false;
    EXPECT_FALSE(bridge().move(kWindow, {kNaN, 2}));
    EXPECT_EQ(log.lines, Lines{kUnavailableLine});
}

TEST_F(WindowServerGeometryTest, each_missing_entry_fails_a_move_before_any_call)
{
    for (const char* symbol :
         {"SLSMainConnectionID", "SLSTransactionCreate", "SLSTransactionMoveWindowWithGroup", "SLSTransactionCommit"}) {
        library.missingSymbols = {symbol};
        WindowServer incomplete(library, processes, loop, log);
        log.lines.clear();
        EXPECT_FALSE(incomplete.move(kWindow, {1, 2}));
        EXPECT_EQ(log.lines, Lines{kSymbolMissing}) << symbol;
    }
    EXPECT_TRUE(library.entryCalls().empty());
}

TEST_F(WindowServerGeometryTest, only_the_first_failed_transaction_is_logged)
{
    bridge();
    library.failAlways("SLSTransactionCreate");
    EXPECT_FALSE(bridge().move(kWindow, {1, 2}));
    EXPECT_FALSE(bridge().move(kWindow, {1, 2}));
    EXPECT_EQ(log.lines, Lines{kCreationFailed});
    EXPECT_EQ(library.callCount("SLSTransactionCreate"), 2U);
    EXPECT_EQ(library.callCount("SLSTransactionCommit"), 0U);
    library.stopFailing();
    EXPECT_TRUE(bridge().move(kWindow, {1, 2})) << "a failed transaction does not end the moves";
}

TEST_F(WindowServerGeometryTest, moves_and_bounds_survive_failed_notifications)
{
    library.bounds[kWindow] = {0, 0, 100, 100};
    bridge();
    library.failAlways("SLSRequestNotificationsForWindows");
    EXPECT_FALSE(watch(kWindow));
    EXPECT_TRUE(bridge().bounds(kWindow).has_value());
    EXPECT_TRUE(bridge().move(kWindow, {1, 2}));
}

} // namespace
} // namespace haloric
