// The eight private entries, called as the program calls them.
#include "contract/HostContract.h"
#include "platform/WindowServerLibrary.h"
#include "windowserver/WindowServer.h"

#include <algorithm>
#include <cstring>
#include <mutex>

namespace haloric {
namespace {

// What the notification procedure has received; the procedure carries no context.
struct Received {
    std::uint32_t event;
    WindowNumber window;
};
std::mutex receivedLock;
std::vector<Received> received;

void receive(std::uint32_t event, const void* data, std::int64_t length, void* /*context*/)
{
    std::uint32_t window = 0;
    if (data && length >= 4)
        std::memcpy(&window, data, sizeof window);
    const std::lock_guard guard(receivedLock);
    received.push_back({event, static_cast<WindowNumber>(window)});
}

constexpr std::uint32_t kEvents[] = {804, 806, 807, 816};

class WindowServerContract : public HostContract {
protected:
    WindowServerContract()
    {
        library = host->windowServerLibrary().open(WindowServer::kFrameworkPath,
                                                   WindowServerLibrary::kLazy | WindowServerLibrary::kLocal);
        if (library)
            entries = WindowServerEntries::find(*library);
        const std::lock_guard guard(receivedLock);
        received.clear();
    }

    void SetUp() override
    {
        ASSERT_TRUE(entries.canNotify());
        ASSERT_TRUE(entries.canGetBounds());
        ASSERT_TRUE(entries.canMove());
    }

    void TearDown() override { stopWatching(); }

    void watch(const ContractWindow& window)
    {
        for (const std::uint32_t event : kEvents)
            ASSERT_EQ(entries.registerProc(&receive, event, nullptr), 0);
        m_watching = true;
        const auto number = static_cast<std::uint32_t>(window.number);
        ASSERT_EQ(entries.request(entries.mainConnection(), &number, 1), 0);
    }

    void stopWatching()
    {
        if (!std::exchange(m_watching, false))
            return;
        EXPECT_EQ(entries.request(entries.mainConnection(), nullptr, 0), 0);
        for (const std::uint32_t event : kEvents)
            EXPECT_EQ(entries.removeProc(&receive, event, nullptr), 0);
    }

    std::optional<Rect> bounds(WindowNumber number)
    {
        WindowServerEntries::CRect rect{};
        if (entries.getBounds(entries.mainConnection(), static_cast<std::uint32_t>(number), &rect) != 0)
            return std::nullopt;
        return Rect{rect.x, rect.y, rect.width, rect.height};
    }

    static std::size_t countOf(std::initializer_list<std::uint32_t> events, WindowNumber window)
    {
        const std::lock_guard guard(receivedLock);
        return static_cast<std::size_t>(std::ranges::count_if(received, [&](const Received& notification) {
            return notification.window == window && std::ranges::count(events, notification.event) > 0;
        }));
    }

    std::unique_ptr<OpenedLibrary> library;
    WindowServerEntries entries;

private:
    bool m_watching = false;
};

TEST_P(WindowServerContract, an_unknown_symbol_is_not_found)
{
    EXPECT_EQ(library->find("SLSNothingOfTheKind"), nullptr);
}

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

TEST_P(WindowServerContract, an_unknown_window_gives_an_error)
{
    EXPECT_EQ(bounds(WindowNumber{0x1ffffff0}), std::nullopt);
}

TEST_P(WindowServerContract, a_closed_window_gives_an_error)
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
    EXPECT_TRUE(host->waitUntil([&] { return countOf({806}, window.number) > 0; }));
}

TEST_P(WindowServerContract, the_watched_window_sends_807_when_it_is_resized)
{
    const ContractWindow window = host->openWindow(kFrame);
    watch(window);

    host->resize(window, {500, 360});
    EXPECT_TRUE(host->waitUntil([&] { return countOf({807}, window.number) > 0; }));
}

TEST_P(WindowServerContract, the_watched_window_sends_804_or_816_when_it_goes)
{
    const ContractWindow closed = host->openWindow(kFrame);
    watch(closed);
    host->close(closed);
    EXPECT_TRUE(host->waitUntil([&] { return countOf({804, 816}, closed.number) > 0; }));
    stopWatching();

    const ContractWindow minimised = host->openWindow(kFrame);
    watch(minimised);
    host->minimise(minimised);
    EXPECT_TRUE(host->waitUntil([&] { return countOf({804, 816}, minimised.number) > 0; }));
}

TEST_P(WindowServerContract, a_window_that_is_not_watched_sends_nothing)
{
    const ContractWindow first = host->openWindow(kFrame);
    const ContractWindow second = host->openWindow(kOtherFrame);
    watch(first);

    host->move(second, {300, 220});
    EXPECT_TRUE(host->waitUntil([&] { return host->frameOf(second)->origin() == Point(300, 220); }));
    host->turnFor(Seconds(0.1));
    EXPECT_EQ(countOf({804, 806, 807, 816}, second.number), 0u);
}

TEST_P(WindowServerContract, nothing_is_sent_once_watching_has_stopped)
{
    const ContractWindow window = host->openWindow(kFrame);
    watch(window);
    stopWatching();

    host->move(window, {260, 180});
    EXPECT_TRUE(host->waitUntil([&] { return host->frameOf(window)->origin() == Point(260, 180); }));
    host->turnFor(Seconds(0.1));
    EXPECT_EQ(countOf({804, 806, 807, 816}, window.number), 0u);
}

INSTANTIATE_TEST_SUITE_P(Hosts, WindowServerContract, testing::ValuesIn(contractHosts()), contractHostName);

} // namespace
} // namespace haloric
