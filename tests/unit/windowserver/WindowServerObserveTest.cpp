#include "WindowServerFixture.h"

namespace haloric {
namespace {

class WindowServerObserveTest : public WindowServerFixture {
protected:
    static constexpr const char* kClear = "SLSRequestNotificationsForWindows(77, none)";
    static constexpr const char* kRequest = "SLSRequestNotificationsForWindows(77, 42)";

    static Calls forEachEvent(const std::string& entry, std::size_t count = 4)
    {
        Calls calls;
        for (const char* event : {"804", "806", "807", "816"})
            if (calls.size() < count)
                calls.push_back(entry + "(" + event + ")");
        return calls;
    }

    static Calls joined(std::initializer_list<Calls> parts)
    {
        Calls all;
        for (const Calls& part : parts)
            all.insert(all.end(), part.begin(), part.end());
        return all;
    }

    static Calls registrations(std::size_t count = 4) { return forEachEvent("SLSRegisterNotifyProc", count); }
    static Calls removals(std::size_t count = 4) { return forEachEvent("SLSRemoveNotifyProc", count); }
};

TEST_F(WindowServerObserveTest, the_first_window_clears_the_list_registers_four_events_and_asks_for_itself)
{
    EXPECT_EQ(callsDuring([&] { EXPECT_TRUE(watch(kWindow)); }),
              joined({{"SLSMainConnectionID()", kClear}, registrations(), {kRequest}}));
    EXPECT_EQ(log.lines, Lines{kEnabledLine});
}

TEST_F(WindowServerObserveTest, the_next_window_keeps_the_registrations_and_logs_nothing)
{
    watch(kWindow);
    EXPECT_EQ(callsDuring([&] { EXPECT_TRUE(watch(kOtherWindow)); }),
              (Calls{"SLSMainConnectionID()", kClear, "SLSRequestNotificationsForWindows(77, 43)"}));
    EXPECT_EQ(log.lines, Lines{kEnabledLine});
}

TEST_F(WindowServerObserveTest, no_window_removes_the_four_registrations_and_the_next_registers_them_again)
{
    watch(kWindow);
    EXPECT_EQ(callsDuring([&] { EXPECT_TRUE(watch(WindowNumber::none)); }),
              joined({{"SLSMainConnectionID()", kClear}, removals()}));
    EXPECT_TRUE(library.registeredEvents().empty());
    EXPECT_TRUE(library.requestedWindows().empty());

    EXPECT_EQ(callsDuring([&] { EXPECT_TRUE(watch(kWindow)); }),
              joined({{"SLSMainConnectionID()", kClear}, registrations(), {kRequest}}));
    EXPECT_EQ(log.lines, Lines{kEnabledLine});
}

TEST_F(WindowServerObserveTest, stopping_without_a_watch_only_clears_the_list)
{
    EXPECT_EQ(callsDuring([&] { EXPECT_TRUE(watch(WindowNumber::none)); }), (Calls{"SLSMainConnectionID()", kClear}));
    EXPECT_TRUE(log.lines.empty());
}

TEST_F(WindowServerObserveTest, a_failure_to_clear_the_list_is_final)
{
    bridge();
    library.failOnCall("SLSRequestNotificationsForWindows", 1);
    EXPECT_EQ(callsDuring([&] { EXPECT_FALSE(watch(kWindow)); }), (Calls{"SLSMainConnectionID()", kClear}));
    EXPECT_EQ(log.lines, Lines{kFailureLine});

    EXPECT_EQ(callsDuring([&] {
                  EXPECT_FALSE(watch(kWindow));
                  EXPECT_FALSE(watch(WindowNumber::none));
              }),
              Calls{});
    EXPECT_EQ(log.lines, Lines{kFailureLine}) << "a bridge that has failed makes no call that could fail again";
}

TEST_F(WindowServerObserveTest, a_failure_to_clear_the_list_leaves_the_registrations_until_the_bridge_goes)
{
    watch(kWindow);
    library.failAlways("SLSRequestNotificationsForWindows");
    EXPECT_EQ(callsDuring([&] { EXPECT_FALSE(watch(kOtherWindow)); }), (Calls{"SLSMainConnectionID()", kClear}));
    EXPECT_TRUE(library.notify(Event::moved, kWindow));
    EXPECT_EQ(callsDuring([&] { destroyBridge(); }), removals());
}

TEST_F(WindowServerObserveTest, a_registration_that_fails_takes_the_earlier_ones_back)
{
    for (std::size_t failing = 1; failing <= 4; ++failing) {
        log.lines.clear();
        library.stopFailing();
        WindowServer fresh(library, processes, loop, log);
        library.failOnCall("SLSRegisterNotifyProc", failing);
        library.forgetCalls();
        EXPECT_FALSE(fresh.observe(kWindow, nullptr));
        EXPECT_EQ(library.entryCalls(),
                  joined({{"SLSMainConnectionID()", kClear}, registrations(failing), removals(failing - 1)}));
        EXPECT_EQ(log.lines, Lines{kFailureLine});
        library.forgetCalls();
        EXPECT_FALSE(fresh.observe(kWindow, nullptr));
        EXPECT_TRUE(library.entryCalls().empty());
    }
}

TEST_F(WindowServerObserveTest, a_request_that_fails_removes_all_registrations_whatever_that_gives)
{
    bridge();
    library.failOnCall("SLSRequestNotificationsForWindows", 2);
    library.failAlways("SLSRemoveNotifyProc");
    EXPECT_EQ(callsDuring([&] { EXPECT_FALSE(watch(kWindow)); }),
              joined({{"SLSMainConnectionID()", kClear}, registrations(), {kRequest}, removals()}));
    EXPECT_EQ(log.lines, Lines{kFailureLine});
    EXPECT_EQ(callsDuring([&] { destroyBridge(); }), Calls{}) << "removed once, not again at the end";
}

TEST_F(WindowServerObserveTest, a_request_that_fails_leaves_no_handler_behind)
{
    watch(kWindow);
    library.failOnCall("SLSRequestNotificationsForWindows", 2);
    EXPECT_FALSE(watch(kOtherWindow));
    library.notifyAnyway(Event::moved, kWindow);
    library.notifyAnyway(Event::moved, kOtherWindow);
    EXPECT_EQ(loop.pendingEventCount(), 0U);
    loop.runPosted();
    EXPECT_TRUE(deliveries.empty());
    EXPECT_EQ(log.lines, (Lines{kEnabledLine, kFailureLine}));
}

TEST_F(WindowServerObserveTest, a_removal_that_fails_ends_the_removing_yet_counts_as_stopped)
{
    watch(kWindow);
    library.failOnCall("SLSRemoveNotifyProc", 2);
    EXPECT_EQ(callsDuring([&] { EXPECT_TRUE(watch(WindowNumber::none)); }),
              joined({{"SLSMainConnectionID()", kClear}, removals(2)}));
    EXPECT_EQ(log.lines, (Lines{kEnabledLine, kFailureLine}));
    EXPECT_EQ(callsDuring([&] { EXPECT_FALSE(watch(kWindow)); }), Calls{});
    EXPECT_EQ(callsDuring([&] { destroyBridge(); }), Calls{});
}

TEST_F(WindowServerObserveTest, each_watch_drops_the_handler_of_the_one_before)
{
    const auto owner = std::make_shared<int>(0);
    bridge().observe(kWindow, [owner](WindowNumber, WindowServer::Changes) {});
    EXPECT_EQ(owner.use_count(), 2);
    library.failAlways("SLSRequestNotificationsForWindows");
    watch(kOtherWindow);
    EXPECT_EQ(owner.use_count(), 1);
}

TEST_F(WindowServerObserveTest, stopping_keeps_no_handler)
{
    const auto owner = std::make_shared<int>(0);
    bridge().observe(WindowNumber::none, [owner](WindowNumber, WindowServer::Changes) {});
    EXPECT_EQ(owner.use_count(), 1);
}

} // namespace
} // namespace haloric
