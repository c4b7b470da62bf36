// What the tracker asks at every frame of the display costs neither memory nor a round trip.
#include "hosts/x11/windows/X11WindowServerCalls.h"

#include "support/AllocationCounter.h"
#include "x11/adapters/DesktopAdapters.h"

namespace haloric {
namespace {

TEST(TickCost, a_tick_without_change_allocates_nothing_and_asks_the_server_nothing)
{
    X11Session session(WindowManager::openbox);
    DesktopAdapters adapters(session.display());
    const auto client = session.makeClient();
    ASSERT_TRUE(client->showFocused());
    ASSERT_TRUE(adapters.waitUntil([&] { return adapters.focusedWindow() == client->window(); }));
    WindowServerCalls& server = adapters.windowServerCalls;
    const WindowNumber window{client->window()};
    ASSERT_TRUE(server.request(server.mainConnection(), window));
    adapters.settle();

    bool isAnswered = true;
    const auto tick = [&] {
        const auto bounds = server.getBounds(server.mainConnection(), window);
        isAnswered = isAnswered && bounds && bounds->width > 0 &&
                     adapters.workspace.frontmostApplication().has_value() &&
                     adapters.accessibility.isProcessTrusted() && !adapters.screens.all().empty();
    };
    const auto allocationsOfTicks = [&] {
        const auto before = allocationCount();
        for (int count = 0; count < 1000; ++count)
            tick();
        return allocationCount() - before;
    };
    xcb_connection_t* raw = adapters.connection->raw();
    const auto sequenceBefore = xcb_no_operation(raw).sequence;
    EXPECT_EQ(allocationsOfTicks(), 0U);
    EXPECT_TRUE(isAnswered);
    EXPECT_EQ(xcb_no_operation(raw).sequence - sequenceBefore, 1U);
}

} // namespace
} // namespace haloric
