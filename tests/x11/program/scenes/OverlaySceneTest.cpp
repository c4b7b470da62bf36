// The program's overlays among the windows of the desktop: input, focus and stacking order.
#include "x11/program/scenes/Scene.h"

#include <algorithm>

namespace haloric {
namespace {

constexpr const char* kDimmed = R"({"pulseEnabled": false, "dimEnabled": true})";

class OverlayScene : public Scene {
protected:
    bool waitForClick(TestClient& client)
    {
        return session.observer().waitUntil([&] {
            client.processEvents();
            return client.buttonPresses() == 1;
        });
    }

    bool waitForColor(int x, int y, Pixel color)
    {
        return session.waitForPixels(nameOfTest() + "-overlay", {x, y, 1, 1},
                                     [&](const ScreenImage& now) { return now.at(x, y) == color; });
    }

    // Waits until all of the program's windows are below `client`.
    bool waitUntilBelow(TestClient& client)
    {
        return session.observer().waitUntil([&] {
            const int top = session.observer().stackingIndexOf(session.observer().topLevelOf(client.window()));
            const auto overlays = haloric->overlays();
            return !overlays.empty() && std::all_of(overlays.begin(), overlays.end(), [&](const RootChild& overlay) {
                return session.observer().stackingIndexOf(overlay.window) < top;
            });
        });
    }
};
INSTANTIATE_TEST_SUITE_P(Desktops, OverlayScene, testing::Values(kOpenboxPicom, kXfwm4, kOpenbox), nameOf);

TEST_P(OverlayScene, a_click_on_the_border_reaches_the_window)
{
    const auto client = openFocused({.decoration = TestClient::Decoration::none});
    startAround(*client);
    const ScreenRect frame = client->visibleFrame();
    session.input().clickAt(frame.x + 1, frame.y + frame.height / 2);
    EXPECT_TRUE(waitForClick(*client)) << log();
}

TEST_P(OverlayScene, a_click_on_the_glow_or_the_dimming_reaches_the_window_below)
{
    const auto below = openFocused({.title = "below", .content = {100, 100, 1500, 800}});
    const auto client = openFocused({.content = {600, 350, 500, 300}});
    startAround(*client, kDimmed);
    const ScreenRect frame = client->visibleFrame();
    session.input().clickAt(frame.x - 4, frame.y + frame.height / 2);
    EXPECT_TRUE(waitForClick(*below)) << log();
}

TEST_P(OverlayScene, its_windows_are_not_listed_and_never_get_the_focus)
{
    const auto client = openFocused();
    startAround(*client, kDimmed);
    const auto overlays = haloric->overlays();
    ASSERT_FALSE(overlays.empty());
    for (const auto& list : {session.observer().clientList(), session.observer().clientListStacking()}) {
        for (const RootChild& overlay : overlays)
            EXPECT_EQ(std::count(list.begin(), list.end(), overlay.window), 0);
    }
    EXPECT_EQ(session.observer().activeWindow(), client->window());
    EXPECT_TRUE(client->hasFocus());
    for (const RootChild& overlay : overlays)
        EXPECT_NE(session.observer().focusedWindow(), overlay.window);
}

TEST_P(OverlayScene, it_is_above_the_focused_window_also_after_that_is_raised)
{
    const auto first = openFocused({.title = "first", .content = {300, 250, 600, 400}});
    const auto second = openFocused({.title = "second", .content = {500, 350, 600, 400}});
    startAround(*second);
    ASSERT_TRUE(first->focus());
    EXPECT_TRUE(waitForBorder(*first)) << log();
    ASSERT_TRUE(second->focus());
    EXPECT_TRUE(waitForBorder(*second)) << log();
}

TEST_P(OverlayScene, a_panel_is_above_it)
{
    const auto client = openFocused({.content = {300, 250, 600, 400}});
    startAround(*client, kDimmed);
    const auto panel = session.makeClient(
        {.title = "panel", .content = {0, 400, 1920, 40}, .color = 0x303030, .type = "_NET_WM_WINDOW_TYPE_DOCK"});
    ASSERT_TRUE(panel->show());
    EXPECT_TRUE(waitUntilBelow(*panel)) << log();
    panel->repaint(); // xfwm4's compositor does not repaint after a mere change of the stacking order
    EXPECT_TRUE(waitForColor(client->visibleFrame().x + 1, 420, 0x303030)) << log();
    EXPECT_TRUE(waitForColor(1700, 420, 0x303030)) << log();
}

TEST_P(OverlayScene, a_menu_is_above_it)
{
    const auto client = openFocused();
    startAround(*client, kDimmed);
    const ScreenRect frame = client->visibleFrame();
    const auto menu = session.makeClient({.title = "menu",
                                          .content = {frame.x - 50, frame.y + 100, 200, 150},
                                          .color = 0xFAFAFA,
                                          .type = "_NET_WM_WINDOW_TYPE_POPUP_MENU",
                                          .management = TestClient::Management::overrideRedirect});
    ASSERT_TRUE(menu->show());
    EXPECT_TRUE(waitUntilBelow(*menu)) << log();
    EXPECT_TRUE(waitForColor(frame.x + 1, frame.y + 150, 0xFAFAFA)) << log();
    ASSERT_TRUE(client->moveTo(client->content().x + 10, client->content().y + 10));
    EXPECT_TRUE(waitUntilBelow(*menu)) << log();
    EXPECT_TRUE(waitForColor(frame.x + 11, frame.y + 150, 0xFAFAFA)) << log();
}

} // namespace
} // namespace haloric
