// Calls that come while another one is under way, and after the bridge has gone.
#include "WindowServerFixture.h"

namespace haloric {
namespace {

class WindowServerReentryTest : public WindowServerFixture {
protected:
    using Changes = WindowServer::Changes;
    using Deliveries = std::vector<Delivery>;
};

TEST_F(WindowServerReentryTest, a_handler_may_watch_another_window)
{
    const auto owner = std::make_shared<int>(7);
    int seen = 0;
    bridge().observe(kWindow, [&, owner](WindowNumber, Changes) {
        watch(kOtherWindow);
        seen = *owner;
    });
    library.notify(806, kWindow);
    loop.runPosted();
    EXPECT_EQ(seen, 7);
    library.notify(807, kOtherWindow);
    loop.runPosted();
    EXPECT_EQ(deliveries, (Deliveries{{kOtherWindow, Changes::resized}}));
}

TEST_F(WindowServerReentryTest, a_notification_inside_the_handler_makes_another_delivery)
{
    int calls = 0;
    bridge().observe(kWindow, [&](WindowNumber, Changes) {
        if (++calls == 1)
            library.notify(806, kWindow);
    });
    library.notify(806, kWindow);
    loop.runPosted();
    EXPECT_EQ(calls, 2);
}

TEST_F(WindowServerReentryTest, a_bridge_that_is_gone_neither_receives_nor_delivers)
{
    watch(kWindow);
    library.notify(806, kWindow);
    destroyBridge();
    library.notifyRaw(807, &kWindow, 4);
    EXPECT_EQ(loop.pendingEventCount(), 1U);
    loop.runPosted();
    EXPECT_TRUE(deliveries.empty());
}

// A main loop that is interrupted by the window server whenever something is posted to it.
class InterruptedRunLoop final : public RunLoop {
public:
    Task interruption;
    std::vector<Task> posted;

    Seconds systemUptime() const override { return Seconds(0); }
    Seconds wallClock() const override { return Seconds(0); }
    void post(Task task) override
    {
        posted.push_back(std::move(task));
        interruption();
    }
    void postAfter(Seconds, Task) override {}
    Subscription scheduleOnce(Seconds, Task) override { return {}; }
    Subscription scheduleRepeating(Seconds, Seconds, Task) override { return {}; }
};

TEST_F(WindowServerReentryTest, no_lock_is_held_while_the_delivery_is_posted)
{
    InterruptedRunLoop interrupted;
    interrupted.interruption = [&] { library.notify(807, kWindow); };
    WindowServer server(library, processes, interrupted, log);
    server.observe(kWindow, [&](WindowNumber id, Changes changes) { deliveries.emplace_back(id, changes); });
    library.notify(806, kWindow);
    ASSERT_EQ(interrupted.posted.size(), 1U);
    interrupted.posted.front()();
    EXPECT_EQ(deliveries, (Deliveries{{kWindow, {Changes::moved, Changes::resized}}}));
}

} // namespace
} // namespace haloric
