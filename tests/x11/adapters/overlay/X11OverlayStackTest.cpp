#include "x11/adapters/ScreenAdapters.h"

namespace haloric {
namespace {

class X11OverlayStackTest : public testing::TestWithParam<WindowManager> {
protected:
    X11Session session{GetParam(), GetParam() == WindowManager::openbox ? Compositor::picom : Compositor::none};
    ScreenAdapters adapters{session};
    PatchView view;
    std::unique_ptr<ToolkitWindow> lower = adapters.make(view, {100, 600, 200, 100});
    std::unique_ptr<ToolkitWindow> upper = adapters.make(view, {100, 600, 200, 100});

    int indexOf(xcb_window_t window) { return session.observer().stackingIndexOf(window); }
    int indexOf(const ToolkitWindow& window) { return indexOf(static_cast<xcb_window_t>(window.windowNumber())); }
    int frameIndexOf(TestClient& client) { return indexOf(session.observer().topLevelOf(client.window())); }

    // Turns the loop until both overlays stand directly above the client, in their order.
    bool waitUntilDirectlyAbove(TestClient& client)
    {
        return adapters.waitUntil([&] {
            client.processEvents();
            const int frame = frameIndexOf(client);
            return frame >= 0 && indexOf(*lower) == frame + 1 && indexOf(*upper) == frame + 2;
        });
    }
    void showBoth()
    {
        lower->orderFront();
        upper->orderFront();
    }
};
INSTANTIATE_TEST_SUITE_P(WindowManagers, X11OverlayStackTest,
                         testing::Values(WindowManager::openbox, WindowManager::xfwm4Compositing),
                         [](const auto& info) { return info.param == WindowManager::openbox ? "openbox" : "xfwm4"; });

TEST_P(X11OverlayStackTest, overlays_stand_directly_above_the_focused_window_in_the_order_of_ordering)
{
    const auto client = session.makeClient();
    ASSERT_TRUE(client->showFocused());
    showBoth();
    EXPECT_TRUE(waitUntilDirectlyAbove(*client));
    lower->orderFront();
    std::swap(lower, upper);
    EXPECT_TRUE(waitUntilDirectlyAbove(*client));
}

TEST_P(X11OverlayStackTest, they_follow_when_another_window_comes_to_the_top)
{
    const auto first = session.makeClient({.title = "first"});
    const auto second = session.makeClient({.title = "second", .content = {900, 300, 300, 200}});
    ASSERT_TRUE(second->show());
    ASSERT_TRUE(first->showFocused());
    showBoth();
    ASSERT_TRUE(waitUntilDirectlyAbove(*first));
    ASSERT_TRUE(second->focus());
    EXPECT_TRUE(waitUntilDirectlyAbove(*second));
    const auto third = session.makeClient({.title = "third", .content = {300, 700, 300, 200}});
    ASSERT_TRUE(third->showFocused());
    EXPECT_TRUE(waitUntilDirectlyAbove(*third));
    ASSERT_TRUE(third->close());
    ASSERT_TRUE(second->focus());
    EXPECT_TRUE(waitUntilDirectlyAbove(*second));
}

TEST_P(X11OverlayStackTest, panels_and_menus_stay_above)
{
    const auto panel =
        session.makeClient({.title = "panel", .content = {0, 1040, 1920, 40}, .type = "_NET_WM_WINDOW_TYPE_DOCK"});
    ASSERT_TRUE(panel->show());
    const auto client = session.makeClient();
    ASSERT_TRUE(client->showFocused());
    const auto menu = session.makeClient(
        {.title = "menu", .content = {320, 280, 100, 100}, .management = TestClient::Management::overrideRedirect});
    ASSERT_TRUE(menu->show());
    showBoth();
    ASSERT_TRUE(waitUntilDirectlyAbove(*client));
    EXPECT_GT(frameIndexOf(*panel), indexOf(*upper));
    EXPECT_GT(indexOf(menu->window()), indexOf(*upper));
}

TEST_P(X11OverlayStackTest, a_window_kept_above_others_stays_above_until_it_has_the_focus)
{
    const auto kept = session.makeClient({.title = "kept", .content = {900, 300, 300, 200}});
    ASSERT_TRUE(kept->showFocused());
    ASSERT_TRUE(kept->setState("_NET_WM_STATE_ABOVE", true));
    const auto client = session.makeClient();
    ASSERT_TRUE(client->showFocused());
    showBoth();
    ASSERT_TRUE(waitUntilDirectlyAbove(*client));
    EXPECT_GT(frameIndexOf(*kept), indexOf(*upper));
    ASSERT_TRUE(kept->focus());
    EXPECT_TRUE(waitUntilDirectlyAbove(*kept));
}

TEST_P(X11OverlayStackTest, a_window_that_is_shown_is_never_on_top_of_a_menu)
{
    const auto client = session.makeClient();
    ASSERT_TRUE(client->showFocused());
    const auto menu = session.makeClient(
        {.title = "menu", .content = {100, 380, 200, 100}, .management = TestClient::Management::overrideRedirect});
    ASSERT_TRUE(menu->show());
    // At the moment when the server maps the window, it stands in its place.
    std::vector<int> order;
    const auto subscription = adapters.connection->onEvent(XCB_MAP_NOTIFY, [&](const xcb_generic_event_t& event) {
        if (eventAs<xcb_map_notify_event_t>(event).window == upper->windowNumber())
            order = {indexOf(*upper), indexOf(menu->window())};
    });
    adapters.settle(); // the client is known, as when it is tracked
    showBoth();
    ASSERT_TRUE(adapters.waitUntil([&] { return !order.empty(); }));
    EXPECT_LT(order[0], order[1]);
}

TEST_P(X11OverlayStackTest, a_popup_that_goes_beneath_them_is_passed_every_time)
{
    const auto client = session.makeClient();
    ASSERT_TRUE(client->showFocused());
    const auto popup = session.makeClient(
        {.title = "popup", .content = {900, 300, 100, 100}, .management = TestClient::Management::overrideRedirect});
    ASSERT_TRUE(popup->show());
    showBoth();
    ASSERT_TRUE(waitUntilDirectlyAbove(*client));
    for (int time = 1; time <= 3; ++time) {
        const std::uint32_t values[] = {session.observer().topLevelOf(client->window()), XCB_STACK_MODE_ABOVE};
        xcb_configure_window(popup->connection().raw(), popup->window(),
                             XCB_CONFIG_WINDOW_SIBLING | XCB_CONFIG_WINDOW_STACK_MODE, values);
        popup->connection().synchronize();
        EXPECT_TRUE(waitUntilDirectlyAbove(*client)) << "time " << time;
    }
}

TEST_P(X11OverlayStackTest, events_that_clients_make_up_are_not_remembered)
{
    showBoth();
    adapters.settle();
    const std::size_t before = adapters.toolkitWindows.stack().rememberedWindows();
    xcb_configure_notify_event_t event{};
    event.response_type = XCB_CONFIGURE_NOTIFY;
    event.event = session.observer().root();
    for (xcb_window_t window = 1; window <= 1000; ++window) {
        event.window = window;
        xcb_send_event(session.observer().raw(), 0, event.event, XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                       reinterpret_cast<const char*>(&event));
    }
    session.observer().synchronize();
    adapters.settle();
    EXPECT_LE(adapters.toolkitWindows.stack().rememberedWindows(), before + 2);
}

TEST_P(X11OverlayStackTest, a_window_that_is_gone_is_forgotten)
{
    showBoth();
    const auto client = session.makeClient();
    ASSERT_TRUE(client->showFocused());
    adapters.settle();
    const std::size_t before = adapters.toolkitWindows.stack().rememberedWindows();
    for (int round = 0; round < 50; ++round) {
        const auto popup = session.makeClient({.title = "popup",
                                               .content = {900, 300, 100, 100},
                                               .management = TestClient::Management::overrideRedirect});
        ASSERT_TRUE(popup->show());
        const std::uint32_t lowest = XCB_STACK_MODE_BELOW;
        xcb_configure_window(popup->connection().raw(), popup->window(), XCB_CONFIG_WINDOW_STACK_MODE, &lowest);
        popup->connection().synchronize();
        adapters.settle();
        ASSERT_TRUE(popup->destroy());
    }
    adapters.settle();
    EXPECT_LE(adapters.toolkitWindows.stack().rememberedWindows(), before + 2);
}

TEST_P(X11OverlayStackTest, restacking_comes_to_rest_by_itself)
{
    const auto first = session.makeClient({.title = "first"});
    const auto second = session.makeClient({.title = "second", .content = {900, 300, 300, 200}});
    ASSERT_TRUE(second->show());
    ASSERT_TRUE(first->showFocused());
    int restacks = 0;
    const auto subscription = adapters.connection->onEvent(XCB_CONFIGURE_NOTIFY, [&](const xcb_generic_event_t& event) {
        const auto window = eventAs<xcb_configure_notify_event_t>(event).window;
        restacks += window == lower->windowNumber() || window == upper->windowNumber() ? 1 : 0;
    });
    showBoth();
    ASSERT_TRUE(waitUntilDirectlyAbove(*first));
    adapters.settle();
    restacks = 0;
    ASSERT_TRUE(second->focus());
    ASSERT_TRUE(waitUntilDirectlyAbove(*second));
    for (int turn = 0; turn < 5; ++turn)
        adapters.settle();
    EXPECT_GT(restacks, 0);
    EXPECT_LE(restacks, 8); // the window manager restacks in a few steps, each is answered at most once
    const int atRest = restacks;
    ASSERT_TRUE(second->moveTo(950, 350));
    for (int turn = 0; turn < 5; ++turn)
        adapters.settle();
    EXPECT_EQ(restacks, atRest); // a window that moves is no reason
}

} // namespace
} // namespace haloric
