// The calls to the window server, made as the program makes them.
#include "contract/HostContract.h"
#include "platform/WindowServerCalls.h"

#include <algorithm>
#include <mutex>
#include <utility>

namespace haloric {
namespace {

using Event = WindowServerEvent;

class WindowServerContract : public HostContract {
protected:
    void SetUp() override
    {
        for (std::size_t entry = 0; entry < WindowServerCalls::kSymbols.size(); ++entry)
            ASSERT_TRUE(calls.has(static_cast<WindowServerCalls::Entry>(entry))) << WindowServerCalls::kSymbols[entry];
    }

    void TearDown() override { stopWatching(); }

    void watch(const ContractWindow& window)
    {
        for (const Event event : kWindowServerEvents)
            ASSERT_TRUE(calls.registerProc(event));
        m_watching = true;
        ASSERT_TRUE(calls.request(calls.mainConnection(), window.number));
    }

    void stopWatching()
    {
        if (!std::exchange(m_watching, false))
            return;
        EXPECT_TRUE(calls.request(calls.mainConnection(), WindowNumber::none));
        for (const Event event : kWindowServerEvents)
            EXPECT_TRUE(calls.removeProc(event));
    }

    std::optional<Rect> bounds(WindowNumber number) { return calls.getBounds(calls.mainConnection(), number); }

    std::ptrdiff_t countOf(std::initializer_list<Event> events, WindowNumber window)
    {
        const std::lock_guard guard(m_lock);
        return std::ranges::count_if(m_received, [&](const auto& notification) {
            return notification.second == window && std::ranges::count(events, notification.first) > 0;
        });
    }

    WindowServerCalls& calls = host->windowServerCalls();

private:
    std::mutex m_lock; // guards the next one: the host may notify on a thread of its own
    std::vector<std::pair<Event, WindowNumber>> m_received;

    bool m_watching = false;
    Subscription m_loaded = calls.load([this](Event event, WindowNumber window) {
        const std::lock_guard guard(m_lock);
        m_received.emplace_back(event, window);
    });
};

TEST_P(WindowServerContract, bounds_are_those_of_the_visible_frame)
{
    const ContractWindow window = host->openWindow(kFrame);

    EXPECT_TRUE(host->waitUntil([&] { return bounds(window.number) == host->frameOf(window); }));
    host->move(window, {260, 180});
    EXPECT_TRUE(host->waitUntil([&] {
        const auto frame = bounds(window.number);
        return frame && frame->origin() == Point(260, 180);
    }));
}

TEST_P(WindowServerContract, an_unknown_window_has_no_bounds)
{
    EXPECT_EQ(bounds(WindowNumber{0x1ffffff0}), std::nullopt);
}

TEST_P(WindowServerContract, a_closed_window_has_no_bounds)
{
    const ContractWindow window = host->openWindow(kFrame);
    EXPECT_TRUE(host->waitUntil([&] { return bounds(window.number).has_value(); }));

    host->close(window);
    EXPECT_TRUE(host->waitUntil([&] { return !bounds(window.number); }));
}

TEST_P(WindowServerContract, the_watched_window_sends_806_when_it_moves)
{
    const ContractWindow window = host->openWindow(kFrame);
    watch(window);

    host->move(window, {260, 180});
    EXPECT_TRUE(host->waitUntil([&] { return countOf({Event::moved}, window.number) > 0; }));
}

TEST_P(WindowServerContract, the_watched_window_sends_807_when_it_is_resized)
{
    const ContractWindow window = host->openWindow(kFrame);
    watch(window);

    host->resize(window, {500, 360});
    EXPECT_TRUE(host->waitUntil([&] { return countOf({Event::resized}, window.number) > 0; }));
}

TEST_P(WindowServerContract, the_watched_window_sends_804_or_816_when_it_goes)
{
    const ContractWindow closed = host->openWindow(kFrame);
    watch(closed);
    host->close(closed);
    EXPECT_TRUE(host->waitUntil([&] { return countOf({Event::destroyed, Event::orderedOut}, closed.number) > 0; }));
    stopWatching();

    const ContractWindow minimised = host->openWindow(kFrame);
    watch(minimised);
    host->minimise(minimised);
    EXPECT_TRUE(host->waitUntil([&] { return countOf({Event::destroyed, Event::orderedOut}, minimised.number) > 0; }));
}

TEST_P(WindowServerContract, a_window_that_is_not_watched_sends_nothing)
{
    const ContractWindow first = host->openWindow(kFrame);
    const ContractWindow second = host->openWindow(kOtherFrame);
    watch(first);

    host->move(second, {300, 220});
    EXPECT_TRUE(host->waitUntil([&] { return host->frameOf(second)->origin() == Point(300, 220); }));
    host->turnFor(Seconds(0.1));
    EXPECT_EQ(countOf({Event::destroyed, Event::moved, Event::resized, Event::orderedOut}, second.number), 0);
}

TEST_P(WindowServerContract, nothing_is_sent_once_watching_has_stopped)
{
    const ContractWindow window = host->openWindow(kFrame);
    watch(window);
    stopWatching();

    host->move(window, {260, 180});
    EXPECT_TRUE(host->waitUntil([&] { return host->frameOf(window)->origin() == Point(260, 180); }));
    host->turnFor(Seconds(0.1));
    EXPECT_EQ(countOf({Event::destroyed, Event::moved, Event::resized, Event::orderedOut}, window.number), 0);
}

INSTANTIATE_TEST_SUITE_P(Hosts, WindowServerContract, testing::ValuesIn(contractHosts()), contractHostName);

} // namespace
} // namespace haloric
