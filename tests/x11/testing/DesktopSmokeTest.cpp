// Each pairing of window manager and compositor used by the tests: windows are mapped, focused, moved and closed.
#include "testing/x11/Pairing.h"

namespace haloric {
namespace {

class DesktopSmoke : public testing::TestWithParam<Pairing> {
protected:
    X11Session session{GetParam().windowManager, GetParam().compositor};
};

TEST_P(DesktopSmoke, a_window_can_be_focused_moved_minimised_filled_to_the_screen_and_closed)
{
    const auto first = session.makeClient({.title = "first", .content = {200, 200, 400, 300}, .color = 0xFF0000});
    const auto second = session.makeClient({.title = "second", .content = {900, 300, 500, 400}, .color = 0x00FF00});
    ASSERT_TRUE(first->showFocused());
    ASSERT_TRUE(second->showFocused());
    EXPECT_EQ(second->content(), (ScreenRect{900, 300, 500, 400}));
    ASSERT_TRUE(first->focus());
    EXPECT_TRUE(first->hasFocus());

    ASSERT_TRUE(first->moveTo(240, 260));
    ASSERT_TRUE(first->resizeTo(480, 320));
    EXPECT_TRUE(session.waitForPixels("moved", {240, 260, 480, 320}, [](const ScreenImage& image) {
        return image.at(241, 261) == 0xFF0000 && image.at(719, 579) == 0xFF0000;
    }));

    ASSERT_TRUE(first->minimise());
    EXPECT_TRUE(session.waitForPixels("minimised", {240, 260, 480, 320}, [](const ScreenImage& image) {
        return image.at(480, 400) == X11Session::kDesktopColor;
    }));
    ASSERT_TRUE(first->focus());
    ASSERT_TRUE(first->setFullScreen(true));
    ASSERT_TRUE(session.observer().waitUntil([&] { return first->content() == ScreenRect{0, 0, 1920, 1080}; }));
    ASSERT_TRUE(first->setFullScreen(false));
    ASSERT_TRUE(first->close());
    ASSERT_TRUE(second->destroy());
}

TEST_P(DesktopSmoke, a_click_reaches_the_window_under_the_pointer)
{
    const auto client = session.makeClient();
    ASSERT_TRUE(client->showFocused());
    session.input().clickAt(500, 400);
    EXPECT_TRUE(session.observer().waitUntil([&] {
        client->processEvents();
        return client->buttonPresses() == 1;
    }));
    session.input().chord({'a'});
    EXPECT_TRUE(session.observer().waitUntil([&] {
        client->processEvents();
        return client->keyPresses() == 1;
    }));
}

TEST_P(DesktopSmoke, the_window_manager_can_be_stopped_and_started_again)
{
    const auto client = session.makeClient();
    ASSERT_TRUE(client->showFocused());
    session.stopWindowManager();
    session.startWindowManager();
    EXPECT_TRUE(session.observer().waitUntil([&] { return client->isListed(); }));
    EXPECT_TRUE(client->focus());
}

INSTANTIATE_TEST_SUITE_P(Pairings, DesktopSmoke,
                         testing::Values(Pairing{"openbox", WindowManager::openbox, Compositor::none},
                                         Pairing{"openbox_picom", WindowManager::openbox, Compositor::picom},
                                         Pairing{"xfwm4", WindowManager::xfwm4, Compositor::none},
                                         Pairing{"xfwm4_picom", WindowManager::xfwm4, Compositor::picom},
                                         Pairing{"xfwm4_compositing", WindowManager::xfwm4Compositing,
                                                 Compositor::none},
                                         Pairing{"metacity", WindowManager::metacity, Compositor::none},
                                         Pairing{"metacity_picom", WindowManager::metacity, Compositor::picom}),
                         nameOf);

TEST(CompositorSmoke, a_translucent_window_is_blended_while_a_compositor_runs)
{
    X11Session session(WindowManager::openbox, Compositor::picom);
    const auto client = session.makeClient({.content = {300, 300, 400, 300}, .color = 0x000000});
    client->connection().setValues(client->window(), "_NET_WM_WINDOW_OPACITY", XCB_ATOM_CARDINAL, {0x80000000});
    ASSERT_TRUE(client->showFocused());
    const Pixel half = blended(0x000000, X11Session::kDesktopColor, 0.5);
    const auto shows = [](Pixel color) {
        return [color](const ScreenImage& image) { return colorDistance(image.at(500, 400), color) <= 3; };
    };
    EXPECT_TRUE(session.waitForPixels("blended", {500, 400, 1, 1}, shows(half)));
    session.stopCompositor();
    EXPECT_TRUE(session.waitForPixels("opaque", {500, 400, 1, 1}, shows(0x000000)));
    session.startCompositor();
    EXPECT_TRUE(session.waitForPixels("blended-again", {500, 400, 1, 1}, shows(half)));
}

} // namespace
} // namespace haloric
