#include "WindowServerFixture.h"

namespace haloric {
namespace {

class WindowServerLoadingTest : public WindowServerFixture {};

constexpr const char* kDisabledLine = "WindowServer fast path disabled; using display-linked fallback";

TEST_F(WindowServerLoadingTest, the_entries_are_loaded_and_nothing_else_is_called)
{
    bridge();
    EXPECT_EQ(library.calls, Calls{"load()"});
    EXPECT_TRUE(log.lines.empty());
}

TEST_F(WindowServerLoadingTest, the_value_1_of_the_variable_disables_everything_and_says_so)
{
    processes.environment["HALORIC_DISABLE_WINDOWSERVER_FAST_PATH"] = "1";
    library.bounds[kWindow] = {0, 0, 100, 100};
    bridge();
    EXPECT_EQ(log.lines, Lines{kDisabledLine});
    EXPECT_FALSE(watch(kWindow));
    EXPECT_FALSE(bridge().bounds(kWindow).has_value());
    EXPECT_FALSE(bridge().move(kWindow, {1, 2}));
    EXPECT_FALSE(bridge().move(kWindow, {1, 2}));
    EXPECT_TRUE(library.calls.empty());
    EXPECT_EQ(log.lines,
              (Lines{kDisabledLine, "WindowServer overlay transaction failed: required symbol unavailable"}));
}

TEST_F(WindowServerLoadingTest, any_other_value_of_the_variable_disables_nothing)
{
    for (const char* value : {"true", "0", "", "1 ", "01", "11"}) {
        processes.environment["HALORIC_DISABLE_WINDOWSERVER_FAST_PATH"] = value;
        WindowServer enabled(library, processes, loop, log);
        EXPECT_TRUE(enabled.observe(kWindow, nullptr)) << value;
    }
    EXPECT_EQ(std::count(log.lines.begin(), log.lines.end(), kDisabledLine), 0);
}

TEST_F(WindowServerLoadingTest, a_library_that_cannot_be_opened_leaves_everything_unavailable)
{
    library.canBeOpened = false;
    bridge();
    EXPECT_EQ(log.lines, Lines{kUnavailableLine});
    EXPECT_EQ(library.calls.size(), 1U);
    EXPECT_FALSE(watch(kWindow));
    EXPECT_FALSE(watch(WindowNumber::none));
    EXPECT_FALSE(bridge().bounds(kWindow).has_value());
    EXPECT_FALSE(bridge().move(kWindow, {1, 2}));
    EXPECT_TRUE(library.entryCalls().empty());
}

TEST_F(WindowServerLoadingTest, each_missing_notification_or_bounds_entry_is_reported)
{
    for (const char* symbol : {"SLSMainConnectionID", "SLSGetWindowBounds", "SLSRegisterNotifyProc",
                               "SLSRemoveNotifyProc", "SLSRequestNotificationsForWindows"}) {
        log.lines.clear();
        library.missingSymbols = {symbol};
        const WindowServer incomplete(library, processes, loop, log);
        EXPECT_EQ(log.lines, Lines{kUnavailableLine}) << symbol;
    }
}

TEST_F(WindowServerLoadingTest, missing_transaction_entries_are_not_reported_before_a_move)
{
    library.missingSymbols = {"SLSTransactionCreate", "SLSTransactionMoveWindowWithGroup", "SLSTransactionCommit"};
    EXPECT_TRUE(watch(kWindow));
    EXPECT_EQ(log.lines, Lines{kEnabledLine});
}

TEST_F(WindowServerLoadingTest, without_any_one_notification_entry_nothing_is_watched_and_nothing_is_called)
{
    for (const char* symbol :
         {"SLSMainConnectionID", "SLSRegisterNotifyProc", "SLSRemoveNotifyProc", "SLSRequestNotificationsForWindows"}) {
        library.missingSymbols = {symbol};
        WindowServer incomplete(library, processes, loop, log);
        library.forgetCalls();
        EXPECT_FALSE(incomplete.observe(kWindow, nullptr)) << symbol;
        EXPECT_FALSE(incomplete.observe(WindowNumber::none, nullptr)) << symbol;
        EXPECT_TRUE(library.entryCalls().empty()) << symbol;
    }
}

TEST_F(WindowServerLoadingTest, watching_needs_no_bounds_entry)
{
    library.missingSymbols = {"SLSGetWindowBounds"};
    EXPECT_TRUE(watch(kWindow));
    EXPECT_FALSE(bridge().bounds(kWindow).has_value());
}

TEST_F(WindowServerLoadingTest, the_entries_are_given_back_after_the_registrations_were_removed)
{
    watch(kWindow);
    library.forgetCalls();
    destroyBridge();
    EXPECT_EQ(library.calls, (Calls{"SLSRemoveNotifyProc(804)", "SLSRemoveNotifyProc(806)", "SLSRemoveNotifyProc(807)",
                                    "SLSRemoveNotifyProc(816)", "unload()"}));
}

} // namespace
} // namespace haloric
