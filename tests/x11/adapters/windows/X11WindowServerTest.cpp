#include "hosts/x11/windows/X11WindowServerCalls.h"

#include "fakes/FakeLog.h"
#include "fakes/FakeProcesses.h"
#include "windowserver/WindowServer.h"
#include "x11/adapters/DesktopAdapters.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace haloric {
namespace {

using Event = WindowServerEvent;

class X11WindowServerTest : public testing::TestWithParam<WindowManager> {
protected:
    X11WindowServerTest()
    {
        for (const Event event : kWindowServerEvents)
            EXPECT_TRUE(server.registerProc(event));
    }

    void clearNotes() { m_notes.clear(); }

    bool hasNote(Event event, const TestClient& client)
    {
        return std::ranges::find(m_notes, std::pair(event, WindowNumber{client.window()})) != m_notes.end();
    }

    bool isNoted(Event event, const TestClient& client)
    {
        return adapters.waitUntil([&] { return hasNote(event, client); });
    }

    std::optional<Rect> bounds(xcb_window_t window)
    {
        return server.getBounds(server.mainConnection(), WindowNumber{window});
    }

    bool watch(const TestClient& client)
    {
        return server.request(server.mainConnection(), WindowNumber{client.window()});
    }

    std::unique_ptr<TestClient> showClient()
    {
        auto client = session.makeClient();
        EXPECT_TRUE(client->showFocused());
        EXPECT_TRUE(adapters.waitUntil(
            [&] { return adapters.listedBounds(client->window()) == pointsOf(client->visibleFrame()); }));
        return client;
    }

    // An own window of 30 by 40 pixels at (10, 20).
    xcb_window_t showOverlay()
    {
        xcb_connection_t* own = adapters.connection->raw();
        const xcb_window_t overlay = xcb_generate_id(own);
        const std::uint32_t overrideRedirect = 1;
        xcb_create_window(own, XCB_COPY_FROM_PARENT, overlay, adapters.connection->root(), 10, 20, 30, 40, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_OVERRIDE_REDIRECT,
                          &overrideRedirect);
        xcb_map_window(own, overlay);
        return overlay;
    }

    X11Session session{GetParam()};
    DesktopAdapters adapters{session.display()};
    WindowServerCalls& server = adapters.windowServerCalls;

    Subscription loaded =
        server.load([this](Event event, WindowNumber window) { m_notes.emplace_back(event, window); });

private:
    std::vector<std::pair<Event, WindowNumber>> m_notes;
};

TEST_P(X11WindowServerTest, a_managed_window_has_its_visible_frame)
{
    const auto client = showClient();
    // Window managers may add the frame after they have given the focus.
    const auto areThoseOfTheFrame = [&] { return bounds(client->window()) == pointsOf(client->visibleFrame()); };
    EXPECT_TRUE(adapters.waitUntil(areThoseOfTheFrame));
    ASSERT_TRUE(watch(*client));
    EXPECT_TRUE(adapters.waitUntil(areThoseOfTheFrame));
}

TEST_P(X11WindowServerTest, a_window_that_does_not_exist_has_no_bounds)
{
    EXPECT_EQ(bounds(0x1234567), std::nullopt);
    EXPECT_EQ(bounds(0), std::nullopt);
}

TEST_P(X11WindowServerTest, a_move_of_the_watched_window_is_delivered_in_the_turn_that_dispatches_its_event)
{
    loaded.reset();
    FakeProcesses processes;
    FakeLog log;
    WindowServer bridge(server, processes, adapters.loop, log);
    const auto client = showClient();
    // Window managers may add the frame after they have given the focus.
    ASSERT_TRUE(adapters.waitUntil([&] { return bounds(client->window()) == pointsOf(client->visibleFrame()); }));
    adapters.settle();
    const WindowNumber window{client->window()};
    int turn = 0;
    std::optional<int> turnOfEvent;
    std::optional<int> turnOfDelivery;
    // A late frame changes the bounds a little.
    const auto before = bridge.bounds(window);
    ASSERT_TRUE(before);
    const auto hasMoved = [&] {
        const auto now = bridge.bounds(window);
        return now && std::abs(now->x - before->x) > 100;
    };
    ASSERT_TRUE(bridge.observe(window, [&](WindowNumber, WindowServer::Changes) {
        if (!turnOfDelivery && hasMoved())
            turnOfDelivery = turn;
    }));
    const auto event = adapters.connection->onEvent(XCB_CONFIGURE_NOTIFY, [&](const auto&) {
        if (!turnOfEvent && hasMoved())
            turnOfEvent = turn;
    });
    ASSERT_TRUE(client->moveTo(800, 420));
    const Deadline deadline(kTimeout);
    while (!turnOfDelivery && !deadline.isOver()) {
        ++turn;
        adapters.loop.turn(Seconds(0.01));
    }
    ASSERT_TRUE(turnOfEvent && turnOfDelivery);
    EXPECT_EQ(*turnOfDelivery, *turnOfEvent);
    EXPECT_TRUE(adapters.waitUntil([&] { return bounds(client->window()) == pointsOf(client->visibleFrame()); }));
}

TEST_P(X11WindowServerTest, moves_in_one_direction_are_notified)
{
    const auto client = showClient();
    ASSERT_TRUE(watch(*client));
    for (const auto& [x, y] : {std::pair{350, 320}, {350, 420}, {450, 420}}) {
        clearNotes();
        ASSERT_TRUE(client->moveTo(x, y));
        EXPECT_TRUE(isNoted(Event::moved, *client)) << x << ", " << y;
        EXPECT_FALSE(hasNote(Event::resized, *client));
    }
}

TEST_P(X11WindowServerTest, resizes_of_the_watched_window_are_notified)
{
    const auto client = showClient();
    ASSERT_TRUE(watch(*client));
    ASSERT_TRUE(client->resizeTo(444, 333));
    EXPECT_TRUE(isNoted(Event::resized, *client));
    EXPECT_TRUE(adapters.waitUntil([&] { return bounds(client->window()) == pointsOf(client->visibleFrame()); }));
}

TEST_P(X11WindowServerTest, minimising_the_window_is_notified_and_leaves_it_without_bounds)
{
    const auto client = showClient();
    ASSERT_TRUE(watch(*client));
    ASSERT_TRUE(client->minimise());
    EXPECT_TRUE(isNoted(Event::orderedOut, *client));
    EXPECT_TRUE(adapters.waitUntil([&] { return !bounds(client->window()).has_value(); }));
}

TEST_P(X11WindowServerTest, the_end_of_the_window_is_notified)
{
    const auto client = showClient();
    ASSERT_TRUE(watch(*client));
    ASSERT_TRUE(client->destroy());
    EXPECT_TRUE(isNoted(Event::destroyed, *client));
    EXPECT_EQ(bounds(client->window()), std::nullopt);
}

TEST_P(X11WindowServerTest, the_end_of_a_window_that_was_hidden_before_is_notified)
{
    const auto client = showClient();
    ASSERT_TRUE(watch(*client));
    ASSERT_TRUE(client->minimise());
    ASSERT_TRUE(isNoted(Event::orderedOut, *client));
    ASSERT_TRUE(client->destroy());
    EXPECT_TRUE(isNoted(Event::destroyed, *client));
}

TEST_P(X11WindowServerTest, the_change_to_full_screen_and_back_is_followed)
{
    const auto client = showClient();
    ASSERT_TRUE(watch(*client));
    ASSERT_TRUE(client->setFullScreen(true));
    EXPECT_TRUE(adapters.waitUntil([&] { return bounds(client->window()) == Rect{0, 0, 1920, 1080}; }));
    ASSERT_TRUE(client->setFullScreen(false));
    EXPECT_TRUE(adapters.waitUntil([&] { return bounds(client->window()) == pointsOf(client->visibleFrame()); }));
}

TEST_P(X11WindowServerTest, only_the_watched_window_is_notified)
{
    const auto watched = showClient();
    const auto other = showClient();
    ASSERT_TRUE(watch(*watched));
    ASSERT_TRUE(other->moveTo(500, 420));
    ASSERT_TRUE(watched->moveTo(520, 440));
    ASSERT_TRUE(isNoted(Event::moved, *watched));
    EXPECT_FALSE(hasNote(Event::moved, *other));
}

TEST_P(X11WindowServerTest, nothing_is_notified_after_the_watch_has_ended)
{
    const auto first = showClient();
    const auto second = showClient();
    ASSERT_TRUE(watch(*first));
    ASSERT_TRUE(first->moveTo(500, 420));
    ASSERT_TRUE(isNoted(Event::moved, *first));
    ASSERT_TRUE(server.request(server.mainConnection(), WindowNumber::none));
    ASSERT_TRUE(watch(*second));
    clearNotes();
    ASSERT_TRUE(first->moveTo(100, 120));
    ASSERT_TRUE(second->moveTo(520, 440));
    ASSERT_TRUE(isNoted(Event::moved, *second));
    EXPECT_FALSE(hasNote(Event::moved, *first));
}

TEST_P(X11WindowServerTest, removed_events_are_not_notified)
{
    const auto client = showClient();
    ASSERT_TRUE(watch(*client));
    EXPECT_TRUE(server.removeProc(Event::moved));
    EXPECT_FALSE(server.removeProc(Event::moved)) << "it is not registered any more";
    ASSERT_TRUE(client->moveTo(500, 420));
    ASSERT_TRUE(client->resizeTo(444, 333));
    ASSERT_TRUE(isNoted(Event::resized, *client));
    EXPECT_FALSE(hasNote(Event::moved, *client));
}

TEST_P(X11WindowServerTest, a_window_of_our_own_is_moved_by_a_transaction)
{
    const xcb_window_t overlay = showOverlay();
    EXPECT_EQ(bounds(overlay), (Rect{10, 20, 30, 40}));
    const auto transaction = server.create(server.mainConnection());
    ASSERT_NE(transaction, nullptr);
    transaction->move(WindowNumber{overlay}, {-70, 80});
    EXPECT_EQ(bounds(overlay), (Rect{10, 20, 30, 40})) << "not before the commit";
    transaction->commit();
    // The flushed request has reached the server before anything that another connection asks from now on.
    EXPECT_TRUE(session.observer().waitUntil([&] {
        return session.observer().rectOnRoot(overlay) == ScreenRect{-70, 80, 30, 40};
    }));
    EXPECT_THAT(adapters.listedWindows(), testing::Not(testing::Contains(overlay)));
}

TEST_P(X11WindowServerTest, places_beyond_the_protocol_are_cut_off)
{
    const xcb_window_t overlay = showOverlay();
    const auto transaction = server.create(server.mainConnection());
    transaction->move(WindowNumber{overlay}, {40000, -1e9}); // as 16 bits, the first would be far to the left
    transaction->commit();
    EXPECT_TRUE(session.observer().waitUntil([&] {
        return session.observer().rectOnRoot(overlay) == ScreenRect{32767, -32768, 30, 40};
    }));
}

TEST_P(X11WindowServerTest, coordinates_are_points)
{
    adapters.scale.set({2, {100, 50, 1920, 1080}});
    const auto client = session.makeClient();
    ASSERT_TRUE(client->showFocused());
    const ScreenRect frame = client->visibleFrame();
    EXPECT_TRUE(adapters.waitUntil([&] {
        return bounds(client->window()) ==
               Rect{(frame.x - 100) / 2.0, (frame.y - 50) / 2.0, frame.width / 2.0, frame.height / 2.0};
    }));
}

INSTANTIATE_TEST_SUITE_P(Under, X11WindowServerTest,
                         testing::Values(WindowManager::openbox, WindowManager::xfwm4, WindowManager::metacity),
                         nameOfParameter);

} // namespace
} // namespace haloric
