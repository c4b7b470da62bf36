// Under a window manager that frames windows without announcing the extents of the frames.
#include "testing/x11/Key.h"
#include "x11/adapters/DesktopAdapters.h"

namespace haloric {
namespace {

class X11TiledFramesTest : public testing::Test {
protected:
    ScreenRect frameOf(TestClient& client)
    {
        return session.observer().rectOnRoot(session.observer().topLevelOf(client.window()));
    }

    // Waits until the window is seen with all of its frame.
    bool isSeenWithItsFrame(TestClient& client)
    {
        return adapters.waitUntil([&] {
            client.processEvents();
            return adapters.listedBounds(client.window()) == pointsOf(frameOf(client));
        });
    }

    std::optional<Point> closeButtonOf(TestClient& client)
    {
        const auto window = std::make_shared<X11AccessibilityElement>(X11AccessibilityElement::Kind::window,
                                                                      ProcessID{1}, client.window());
        const auto button = adapters.valueOf<AXElement>(window, "AXCloseButton");
        return button ? adapters.valueOf<Point>(*button, "AXPosition") : std::nullopt;
    }

    X11Session session{WindowManager::i3};
    DesktopAdapters adapters{session.display()};
};

TEST_F(X11TiledFramesTest, a_window_is_seen_with_the_frame_that_was_made_for_it)
{
    const auto first = session.makeClient({.title = "first"});
    const auto second = session.makeClient({.title = "second"});
    ASSERT_TRUE(first->showFocused());
    EXPECT_TRUE(isSeenWithItsFrame(*first));
    ASSERT_TRUE(second->showFocused());
    EXPECT_TRUE(isSeenWithItsFrame(*second));
    EXPECT_TRUE(isSeenWithItsFrame(*first)) << "it has made room";
    EXPECT_GT(second->content().y, frameOf(*second).y) << "there is a title bar";
    EXPECT_TRUE(closeButtonOf(*second).has_value());
}

TEST_F(X11TiledFramesTest, of_windows_in_tabs_the_shown_one_is_seen_without_the_tabs)
{
    const auto first = session.makeClient({.title = "first"});
    const auto second = session.makeClient({.title = "second"});
    ASSERT_TRUE(first->showFocused());
    ASSERT_TRUE(second->showFocused());
    const int before = frameOf(*second).width;
    session.input().chord({Key::kF5});
    ASSERT_TRUE(session.observer().waitUntil([&] { return frameOf(*second).width > before; }));
    EXPECT_TRUE(isSeenWithItsFrame(*second));
    EXPECT_TRUE(adapters.waitUntil([&] { return !closeButtonOf(*second).has_value(); }));
    session.input().chord({Key::kF6});
    ASSERT_TRUE(session.observer().waitUntil([&] { return frameOf(*second).width == before; }));
    EXPECT_TRUE(isSeenWithItsFrame(*second));
    EXPECT_TRUE(adapters.waitUntil([&] { return closeButtonOf(*second).has_value(); }));
}

TEST_F(X11TiledFramesTest, a_floating_window_is_followed_with_its_frame)
{
    const auto client = session.makeClient({.type = "_NET_WM_WINDOW_TYPE_DIALOG"});
    ASSERT_TRUE(client->showFocused());
    EXPECT_TRUE(isSeenWithItsFrame(*client));
    ASSERT_TRUE(client->setContent({700, 500, 333, 222}));
    EXPECT_TRUE(isSeenWithItsFrame(*client));
    EXPECT_GT(client->content().y, frameOf(*client).y);
}

TEST_F(X11TiledFramesTest, estimates_that_the_window_manager_wrote_before_the_frame_are_not_believed)
{
    const auto client = session.makeClient();
    client->connection().setValues(client->window(), "_NET_FRAME_EXTENTS", XCB_ATOM_CARDINAL, {40, 40, 40, 40});
    ASSERT_TRUE(client->showFocused());
    EXPECT_TRUE(isSeenWithItsFrame(*client));
}

TEST_F(X11TiledFramesTest, a_full_screen_window_is_its_own_frame)
{
    const auto client = session.makeClient();
    ASSERT_TRUE(client->showFocused());
    ASSERT_TRUE(client->setFullScreen(true));
    EXPECT_TRUE(adapters.waitUntil([&] { return adapters.listedBounds(client->window()) == Rect{0, 0, 1920, 1080}; }));
    EXPECT_FALSE(closeButtonOf(*client).has_value());
}

} // namespace
} // namespace haloric
