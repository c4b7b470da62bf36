// The bridge over a library that the dynamic loader opened.
#include "WindowServerModuleLibrary.h"
#include "fakes/FakeLog.h"
#include "fakes/FakeProcesses.h"
#include "hosts/sim/loop/SimRunLoop.h"

#include <memory>
#include <string>
#include <vector>

namespace haloric {
namespace {

using Lines = std::vector<std::string>;

constexpr WindowNumber kWindow{42};
constexpr const char* kEnabledLine = "WindowServer fast path: focused-window notifications enabled";
constexpr const char* kUnavailableLine = "WindowServer notifications unavailable; using display-linked fallback";
constexpr const char* kFailureLine = "WindowServer notification call failed; using display-linked fallback";

// One bridge over the module.
struct Loaded {
    WindowServerModuleLibrary library;
    LoadedWindowServerCalls calls{library};
    FakeProcesses processes;
    FakeLog log;
    SimRunLoop loop;
    WindowServer bridge{calls, processes, loop, log};
};

TEST(WindowServerOverLoader, every_operation_works)
{
    Loaded loaded;
    std::vector<WindowServer::Changes> delivered;
    EXPECT_TRUE(loaded.bridge.observe(kWindow, [&](WindowNumber, WindowServer::Changes c) { delivered.push_back(c); }));
    EXPECT_EQ(loaded.library.state().registeredEvents, 4);
    EXPECT_EQ(loaded.library.state().requestedWindows, 1);
    loaded.library.control<ModuleNotify>("moduleNotify")(806, 42);
    loaded.library.control<ModuleNotify>("moduleNotify")(816, 42);
    loaded.loop.runPosted();
    EXPECT_EQ(delivered,
              (std::vector{WindowServer::Changes{WindowServer::Changes::moved, WindowServer::Changes::other}}));

    EXPECT_EQ(loaded.bridge.bounds(kWindow), (Rect{10, 20, 400, 300}));
    EXPECT_TRUE(loaded.bridge.move(kWindow, {-5.5, 70}));
    EXPECT_EQ(loaded.bridge.bounds(kWindow), (Rect{-5.5, 70, 400, 300}));
    EXPECT_FALSE(loaded.bridge.bounds(WindowNumber{43}).has_value());

    EXPECT_TRUE(loaded.bridge.observe(WindowNumber::none, nullptr));
    const auto state = loaded.library.state();
    EXPECT_EQ(state.registeredEvents, 0);
    EXPECT_EQ(state.requestedWindows, 0);
    EXPECT_EQ(state.transactionsCommitted, 1);
    EXPECT_EQ(loaded.library.releases(), 1);
    EXPECT_TRUE(state.boundsWereZeroed);
    EXPECT_TRUE(state.contextsWereNull);
}

TEST(WindowServerOverLoader, a_bridge_that_goes_takes_its_registrations_with_it)
{
    auto loaded = std::make_unique<Loaded>();
    loaded->bridge.observe(kWindow, nullptr);
    PosixLibrary loader([](void*) {});
    const auto kept = loader.open(WindowServerModuleLibrary::path().c_str(), 5);
    loaded.reset();
    EXPECT_EQ(reinterpret_cast<ModuleState>(kept->find("moduleState"))().registeredEvents, 0);
}

TEST(WindowServerOverLoader, each_notification_entry_that_fails_ends_the_notifications)
{
    for (const char* entry : {"SLSRequestNotificationsForWindows", "SLSRegisterNotifyProc"}) {
        Loaded loaded;
        loaded.library.fail(entry);
        EXPECT_FALSE(loaded.bridge.observe(kWindow, nullptr)) << entry;
        EXPECT_EQ(loaded.log.lines, Lines{kFailureLine}) << entry;
        EXPECT_EQ(loaded.library.state().registeredEvents, 0) << entry;
    }
    Loaded loaded;
    loaded.bridge.observe(kWindow, nullptr);
    loaded.library.fail("SLSRemoveNotifyProc", -1);
    EXPECT_TRUE(loaded.bridge.observe(WindowNumber::none, nullptr));
    EXPECT_EQ(loaded.log.lines, (Lines{kEnabledLine, kFailureLine}));
    EXPECT_FALSE(loaded.bridge.observe(kWindow, nullptr));
}

TEST(WindowServerOverLoader, the_failure_of_another_entry_leaves_the_rest_working)
{
    Loaded loaded;
    loaded.library.fail("SLSGetWindowBounds", -1);
    EXPECT_FALSE(loaded.bridge.bounds(kWindow).has_value());
    loaded.library.fail("SLSTransactionMoveWindowWithGroup");
    loaded.library.fail("SLSTransactionCommit");
    EXPECT_TRUE(loaded.bridge.move(kWindow, {1, 2}));
    loaded.library.fail("SLSTransactionCreate");
    EXPECT_FALSE(loaded.bridge.move(kWindow, {1, 2}));
    EXPECT_EQ(loaded.log.lines, Lines{"WindowServer overlay transaction failed: transaction creation failed"});
    EXPECT_EQ(loaded.library.releases(), 1);
    EXPECT_TRUE(loaded.bridge.observe(kWindow, nullptr));
}

TEST(WindowServerOverLoader, the_framework_of_macos_is_not_here)
{
    PosixLibrary loader([](void*) {});
    LoadedWindowServerCalls calls(loader);
    FakeProcesses processes;
    FakeLog log;
    SimRunLoop loop;
    WindowServer bridge(calls, processes, loop, log);
    EXPECT_EQ(log.lines, Lines{kUnavailableLine});
    EXPECT_FALSE(bridge.observe(kWindow, nullptr));
}

} // namespace
} // namespace haloric
