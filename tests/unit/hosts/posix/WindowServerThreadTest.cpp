// Notifications from a thread of the library while the main thread watches one window after the other. Races show
// best under the thread sanitizer.
#include "WindowServerModuleLibrary.h"
#include "fakes/FakeLog.h"
#include "fakes/FakeProcesses.h"
#include "fakes/PostingRunLoop.h"

#include <memory>

namespace haloric {
namespace {

class WindowServerThreadTest : public testing::Test {
protected:
    static constexpr std::int32_t kNotifications = 20'000;
    static constexpr WindowNumber kFirst{42};
    static constexpr WindowNumber kSecond{43};

    WindowServerModuleLibrary library;
    LoadedWindowServerCalls calls{library};
    FakeProcesses processes;
    FakeLog log;
    PostingRunLoop loop;
    std::unique_ptr<WindowServer> bridge = std::make_unique<WindowServer>(calls, processes, loop, log);

    void startBurst() { library.control<ModuleStartBurst>("moduleStartBurst")(kNotifications); }
    void joinBurst() { library.control<ModuleJoinBurst>("moduleJoinBurst")(); }
};

TEST_F(WindowServerThreadTest, a_burst_makes_few_deliveries_and_loses_no_change)
{
    WindowServer::Changes seen;
    std::size_t deliveries = 0;
    bridge->observe(kFirst, [&](WindowNumber id, WindowServer::Changes changes) {
        EXPECT_EQ(id, kFirst);
        EXPECT_FALSE(changes.isEmpty());
        seen.insert(changes);
        ++deliveries;
    });
    startBurst();
    loop.waitAndRunOne();
    joinBurst();
    EXPECT_LE(loop.runAll(), 1U) << "at most one delivery is queued at a time";
    EXPECT_EQ(seen, (WindowServer::Changes{WindowServer::Changes::moved, WindowServer::Changes::resized}));
    EXPECT_GE(deliveries, 1U);
    EXPECT_LE(deliveries, 2U);
}

TEST_F(WindowServerThreadTest, only_the_window_that_is_watched_at_the_time_is_delivered)
{
    std::size_t deliveries = 0;
    startBurst();
    for (int round = 0; round < 2'000; ++round) {
        const WindowNumber watched = round % 2 ? kFirst : kSecond;
        bridge->observe(watched, [&, watched](WindowNumber id, WindowServer::Changes) {
            EXPECT_EQ(id, watched);
            ++deliveries;
        });
        if (round % 7 == 0)
            bridge->observe(WindowNumber::none, nullptr);
        loop.runAll();
    }
    joinBurst();
    bridge->observe(kFirst, [&](WindowNumber, WindowServer::Changes) { ++deliveries; });
    loop.runAll();
    const std::size_t before = deliveries;
    library.control<ModuleNotify>("moduleNotify")(806, 42);
    loop.runAll();
    EXPECT_EQ(deliveries, before + 1) << "the bridge still works";
}

TEST_F(WindowServerThreadTest, a_bridge_may_go_while_notifications_arrive)
{
    bridge->observe(kFirst,
                    [](WindowNumber, WindowServer::Changes) { FAIL() << "delivered after the bridge was gone"; });
    startBurst();
    bridge.reset();
    loop.runAll();
    joinBurst();
    EXPECT_EQ(loop.runAll(), 0U);
}

} // namespace
} // namespace haloric
