#include "windowserver/LoadedWindowServerCalls.h"

#include "FakeWindowServerLibrary.h"
#include "fakes/FakeLog.h"
#include "fakes/FakeProcesses.h"
#include "hosts/sim/loop/SimRunLoop.h"
#include "windowserver/WindowServer.h"

#include <array>
#include <cstring>
#include <utility>

namespace haloric {
namespace {

using Calls = std::vector<std::string>;
using Lines = std::vector<std::string>;
using Entry = WindowServerCalls::Entry;

constexpr WindowNumber kWindow{42};

class LoadedWindowServerCallsTest : public testing::Test {
protected:
    using Notifications = std::vector<std::pair<WindowServerEvent, WindowNumber>>;

    void load()
    {
        loaded = calls.load(
            [this](WindowServerEvent event, WindowNumber window) { notifications.emplace_back(event, window); });
    }

    // As `load`, and forgets the calls that it made.
    void loadSilently()
    {
        load();
        library.calls.clear();
    }

    FakeWindowServerLibrary library;
    LoadedWindowServerCalls calls{library};
    Notifications notifications;
    Subscription loaded;
};

TEST_F(LoadedWindowServerCallsTest, nothing_is_opened_before_the_entries_are_loaded)
{
    EXPECT_TRUE(library.calls.empty());
    EXPECT_FALSE(calls.has(Entry::mainConnection));
}

TEST_F(LoadedWindowServerCallsTest, the_library_is_opened_by_its_path_and_the_entries_are_looked_up_in_order)
{
    load();
    EXPECT_EQ(library.calls, (Calls{"open(/System/Library/PrivateFrameworks/SkyLight.framework/SkyLight, 5)",
                                    "find(SLSMainConnectionID)", "find(SLSGetWindowBounds)",
                                    "find(SLSRegisterNotifyProc)", "find(SLSRemoveNotifyProc)",
                                    "find(SLSRequestNotificationsForWindows)", "find(SLSTransactionCreate)",
                                    "find(SLSTransactionMoveWindowWithGroup)", "find(SLSTransactionCommit)"}));
}

TEST_F(LoadedWindowServerCallsTest, a_library_that_cannot_be_opened_has_no_entry)
{
    library.canBeOpened = false;
    load();
    EXPECT_EQ(library.calls.size(), 1U);
    for (std::size_t entry = 0; entry < WindowServerCalls::kSymbols.size(); ++entry)
        EXPECT_FALSE(calls.has(static_cast<Entry>(entry))) << entry;
}

TEST_F(LoadedWindowServerCallsTest, each_missing_symbol_is_its_own_missing_entry)
{
    for (std::size_t missing = 0; missing < WindowServerCalls::kSymbols.size(); ++missing) {
        loaded.reset();
        library.missingSymbols = {WindowServerCalls::kSymbols.at(missing)};
        load();
        for (std::size_t entry = 0; entry < WindowServerCalls::kSymbols.size(); ++entry)
            EXPECT_EQ(calls.has(static_cast<Entry>(entry)), entry != missing) << entry << " " << missing;
    }
}

TEST_F(LoadedWindowServerCallsTest, each_missing_symbol_switches_off_what_needs_it)
{
    struct Case {
        const char* symbol;
        bool notifies, hasBounds, moves;
    };
    const Lines unavailable{"WindowServer notifications unavailable; using display-linked fallback"};
    const std::string failed = "WindowServer overlay transaction failed: required symbol unavailable";
    for (const Case& missing : {Case{"SLSMainConnectionID", false, false, false},
                                {"SLSGetWindowBounds", true, false, true},
                                {"SLSRegisterNotifyProc", false, true, true},
                                {"SLSRemoveNotifyProc", false, true, true},
                                {"SLSRequestNotificationsForWindows", false, true, true},
                                {"SLSTransactionCreate", true, true, false},
                                {"SLSTransactionMoveWindowWithGroup", true, true, false},
                                {"SLSTransactionCommit", true, true, false}}) {
        library.missingSymbols = {missing.symbol};
        FakeProcesses processes;
        FakeLog log;
        SimRunLoop loop;
        WindowServer bridge(calls, processes, loop, log);
        const bool isReported = !missing.notifies || !missing.hasBounds;
        EXPECT_EQ(log.lines, isReported ? unavailable : Lines{}) << missing.symbol;
        EXPECT_EQ(bridge.observe(kWindow, nullptr), missing.notifies) << missing.symbol;
        EXPECT_EQ(bridge.bounds(kWindow).has_value(), missing.hasBounds) << missing.symbol;
        EXPECT_EQ(bridge.move(kWindow, {1, 2}), missing.moves) << missing.symbol;
        EXPECT_EQ(std::count(log.lines.begin(), log.lines.end(), failed), missing.moves ? 0 : 1) << missing.symbol;
    }
}

TEST_F(LoadedWindowServerCallsTest, the_notification_entries_get_their_arguments)
{
    loadSilently();
    EXPECT_EQ(calls.mainConnection(), 77);
    EXPECT_TRUE(calls.request(77, WindowNumber::none));
    EXPECT_TRUE(calls.registerProc(WindowServerEvent::moved));
    EXPECT_TRUE(calls.request(77, kWindow));
    EXPECT_TRUE(calls.removeProc(WindowServerEvent::moved));
    EXPECT_EQ(library.takeCalls(),
              (Calls{"SLSMainConnectionID()", "SLSRequestNotificationsForWindows(77, null, 0)",
                     "SLSRegisterNotifyProc(proc, 806, null)", "SLSRequestNotificationsForWindows(77, 42, 1)",
                     "SLSRemoveNotifyProc(proc, 806, null)"}));
}

TEST_F(LoadedWindowServerCallsTest, bounds_are_read_into_a_zeroed_rectangle)
{
    loadSilently();
    EXPECT_EQ(calls.getBounds(77, kWindow), (Rect{10, 20.5, 400, 300}));
    EXPECT_EQ(library.takeCalls(), Calls{"SLSGetWindowBounds(77, 42, zeroed)"});
}

TEST_F(LoadedWindowServerCallsTest, a_transaction_is_released_after_its_commit)
{
    loadSilently();
    {
        const auto transaction = calls.create(77);
        transaction->move(kWindow, {10.5, -20});
        transaction->commit();
    }
    EXPECT_EQ(library.takeCalls(),
              (Calls{"SLSTransactionCreate(77)", "SLSTransactionMoveWindowWithGroup(tx, 42, 10.5, -20)",
                     "SLSTransactionCommit(tx, 0)", "release(tx)"}));
}

TEST_F(LoadedWindowServerCallsTest, error_codes_are_errors)
{
    loadSilently();
    library.failingSymbols = {"SLSGetWindowBounds", "SLSRegisterNotifyProc", "SLSRemoveNotifyProc",
                              "SLSRequestNotificationsForWindows", "SLSTransactionCreate"};
    EXPECT_EQ(calls.getBounds(77, kWindow), std::nullopt);
    EXPECT_FALSE(calls.registerProc(WindowServerEvent::moved));
    EXPECT_FALSE(calls.removeProc(WindowServerEvent::moved));
    EXPECT_FALSE(calls.request(77, WindowNumber::none));
    EXPECT_FALSE(calls.request(77, kWindow));
    EXPECT_EQ(calls.create(77), nullptr);
}

TEST_F(LoadedWindowServerCallsTest, the_results_of_moving_and_committing_are_ignored)
{
    FakeProcesses processes;
    FakeLog log;
    SimRunLoop loop;
    WindowServer bridge(calls, processes, loop, log);
    library.failingSymbols = {"SLSTransactionMoveWindowWithGroup", "SLSTransactionCommit"};
    EXPECT_TRUE(bridge.move(kWindow, {1, 2}));
    EXPECT_EQ(library.calls.back(), "release(tx)");
    EXPECT_TRUE(log.lines.empty());
}

TEST_F(LoadedWindowServerCallsTest, a_notification_carries_its_event_and_the_window_at_the_start_of_its_data)
{
    loadSilently();
    calls.registerProc(WindowServerEvent::moved);
    // The server's records are longer than the number that they begin with, and need not be aligned.
    std::array<std::byte, 13> data{};
    std::memcpy(data.data() + 1, &kWindow, sizeof kWindow);
    library.procedure(806, data.data() + 1, 12, nullptr);
    library.procedure(816, &kWindow, 4, nullptr);
    library.procedure(1, &kWindow, 4, nullptr);
    EXPECT_EQ(notifications, (Notifications{{WindowServerEvent::moved, kWindow},
                                            {WindowServerEvent::orderedOut, kWindow},
                                            {WindowServerEvent{1}, kWindow}}));
}

TEST_F(LoadedWindowServerCallsTest, short_or_missing_data_is_ignored)
{
    loadSilently();
    calls.registerProc(WindowServerEvent::moved);
    library.procedure(806, nullptr, 12, nullptr);
    for (const std::int64_t length : {3, 0, -1})
        library.procedure(806, &kWindow, length, nullptr);
    EXPECT_TRUE(notifications.empty());
}

TEST_F(LoadedWindowServerCallsTest, given_back_entries_close_the_library_and_drop_later_notifications)
{
    loadSilently();
    calls.registerProc(WindowServerEvent::moved);
    library.calls.clear();
    loaded.reset();
    EXPECT_EQ(library.calls, Calls{"close()"});
    EXPECT_FALSE(calls.has(Entry::mainConnection));
    library.procedure(806, &kWindow, 4, nullptr);
    EXPECT_TRUE(notifications.empty());
}

TEST_F(LoadedWindowServerCallsTest, a_bridge_closes_the_library_after_it_has_removed_its_registrations)
{
    FakeProcesses processes;
    FakeLog log;
    SimRunLoop loop;
    {
        WindowServer bridge(calls, processes, loop, log);
        library.calls.clear();
        EXPECT_TRUE(bridge.observe(kWindow, nullptr));
        EXPECT_EQ(library.takeCalls(),
                  (Calls{"SLSMainConnectionID()", "SLSRequestNotificationsForWindows(77, null, 0)",
                         "SLSRegisterNotifyProc(proc, 804, null)", "SLSRegisterNotifyProc(proc, 806, null)",
                         "SLSRegisterNotifyProc(proc, 807, null)", "SLSRegisterNotifyProc(proc, 816, null)",
                         "SLSRequestNotificationsForWindows(77, 42, 1)"}));
    }
    EXPECT_EQ(library.calls,
              (Calls{"SLSRemoveNotifyProc(proc, 804, null)", "SLSRemoveNotifyProc(proc, 806, null)",
                     "SLSRemoveNotifyProc(proc, 807, null)", "SLSRemoveNotifyProc(proc, 816, null)", "close()"}));
}

} // namespace
} // namespace haloric
