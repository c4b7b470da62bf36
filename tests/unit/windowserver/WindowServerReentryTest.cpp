// Calls that come while another one is under way, and after the bridge has gone.
#include "WindowServerFixture.h"

#include <future>
#include <map>

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
    library.notify(Event::moved, kWindow);
    loop.runPosted();
    EXPECT_EQ(seen, 7);
    library.notify(Event::resized, kOtherWindow);
    loop.runPosted();
    EXPECT_EQ(deliveries, (Deliveries{{kOtherWindow, Changes::resized}}));
}

TEST_F(WindowServerReentryTest, a_notification_inside_the_handler_makes_another_delivery)
{
    int calls = 0;
    bridge().observe(kWindow, [&](WindowNumber, Changes) {
        if (++calls == 1)
            library.notify(Event::moved, kWindow);
    });
    library.notify(Event::moved, kWindow);
    loop.runPosted();
    EXPECT_EQ(calls, 2);
}

TEST_F(WindowServerReentryTest, a_bridge_that_is_gone_neither_receives_nor_delivers)
{
    watch(kWindow);
    library.notify(Event::moved, kWindow);
    destroyBridge();
    library.notifyAnyway(Event::resized, kWindow);
    EXPECT_EQ(loop.pendingEventCount(), 1U);
    loop.runPosted();
    EXPECT_TRUE(deliveries.empty());
}

TEST_F(WindowServerReentryTest, no_lock_is_held_while_an_entry_is_called)
{
    // As the window server does it: from a thread of its own, while the entry waits for that thread.
    std::vector<std::future<void>> sent;
    std::map<std::string, int> sentDuring;
    library.onEntry = [&](const std::string& entry) {
        if (HasFatalFailure()) // one wait is enough
            return;
        for (const Event event : library.registeredEvents()) { // none yet during the first calls
            sent.push_back(std::async(std::launch::async, [this, event] { library.notify(event, kWindow); }));
            ASSERT_EQ(sent.back().wait_for(std::chrono::seconds(10)), std::future_status::ready) << entry;
            ++sentDuring[entry];
        }
    };
    EXPECT_TRUE(watch(kOtherWindow));
    EXPECT_TRUE(watch(kWindow));
    EXPECT_TRUE(watch(WindowNumber::none));
    EXPECT_GT(sentDuring["SLSRegisterNotifyProc"], 0);
    EXPECT_GT(sentDuring["SLSRequestNotificationsForWindows"], 0);
    EXPECT_GT(sentDuring["SLSRemoveNotifyProc"], 0);
    EXPECT_EQ(loop.pendingEventCount(), 0U) << "at none of these moments is the window watched";
    library.onEntry = nullptr;
}

TEST_F(WindowServerReentryTest, a_notification_inside_the_request_of_a_new_watch_is_dropped)
{
    watch(kOtherWindow);
    int sent = 0;
    library.onEntry = [&](const std::string&) {
        if (library.calls.back() == "SLSRequestNotificationsForWindows(77, 42)")
            sent += library.notify(Event::moved, kWindow) + library.notify(Event::moved, kOtherWindow);
    };
    watch(kWindow);
    library.onEntry = nullptr;
    EXPECT_EQ(sent, 2);
    EXPECT_EQ(loop.pendingEventCount(), 0U);

    library.notify(Event::resized, kWindow);
    loop.runPosted();
    EXPECT_EQ(deliveries, (Deliveries{{kWindow, Changes::resized}}));
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
    interrupted.interruption = [&] { library.notify(Event::resized, kWindow); };
    WindowServer server(library, processes, interrupted, log);
    server.observe(kWindow, [&](WindowNumber id, Changes changes) { deliveries.emplace_back(id, changes); });
    library.notify(Event::moved, kWindow);
    ASSERT_EQ(interrupted.posted.size(), 1U);
    interrupted.posted.front()();
    EXPECT_EQ(deliveries, (Deliveries{{kWindow, {Changes::moved, Changes::resized}}}));
}

} // namespace
} // namespace haloric
