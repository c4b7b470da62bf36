// Where windows are seen, under window managers that frame them in different ways.
#include "x11/adapters/DesktopAdapters.h"

#include <cmath>

namespace haloric {
namespace {

class X11FramesTest : public testing::TestWithParam<WindowManager> {
protected:
    // Waits until the table agrees with what the test measures from outside.
    bool agrees(TestClient& client)
    {
        return adapters.waitUntil([&] {
            adapters.settle();
            return adapters.listedBounds(client.window()) == pointsOf(client.visibleFrame());
        });
    }

    std::string difference(TestClient& client)
    {
        const auto bounds = adapters.listedBounds(client.window()).value_or(Rect{});
        const Rect frame = pointsOf(client.visibleFrame());
        return testing::PrintToString(std::array{bounds.x, bounds.y, bounds.width, bounds.height}) + " for " +
               testing::PrintToString(std::array{frame.x, frame.y, frame.width, frame.height});
    }

    X11Session session{GetParam()};
    DesktopAdapters adapters{session.display()};
};

TEST_P(X11FramesTest, a_decorated_window_is_seen_with_its_decoration)
{
    const auto client = session.makeClient();
    ASSERT_TRUE(client->showFocused());
    ASSERT_GT(client->frameExtents()[2], 0);
    EXPECT_TRUE(agrees(*client)) << difference(*client);
}

TEST_P(X11FramesTest, the_frame_is_followed_as_it_moves_and_changes_size)
{
    const auto client = session.makeClient();
    ASSERT_TRUE(client->showFocused());
    ASSERT_TRUE(client->moveTo(40, 60));
    EXPECT_TRUE(agrees(*client)) << difference(*client);
    ASSERT_TRUE(client->resizeTo(333, 222));
    EXPECT_TRUE(agrees(*client)) << difference(*client);
    ASSERT_TRUE(client->setContent({1200, 500, 640, 480}));
    EXPECT_TRUE(agrees(*client)) << difference(*client);
}

TEST_P(X11FramesTest, a_window_that_fills_the_screen_and_returns_is_followed)
{
    const auto client = session.makeClient();
    ASSERT_TRUE(client->showFocused());
    ASSERT_TRUE(client->setFullScreen(true));
    EXPECT_TRUE(adapters.waitUntil([&] {
        return adapters.listedBounds(client->window()) == Rect{0, 0, 1920, 1080};
    })) << difference(*client);
    ASSERT_TRUE(client->setFullScreen(false));
    ASSERT_TRUE(client->moveTo(222, 333));
    EXPECT_TRUE(agrees(*client)) << difference(*client);
}

TEST_P(X11FramesTest, a_window_without_decoration_is_its_own_frame)
{
    const auto client = session.makeClient({.decoration = TestClient::Decoration::none});
    ASSERT_TRUE(client->showFocused());
    EXPECT_TRUE(agrees(*client)) << difference(*client);
    ASSERT_TRUE(client->moveTo(40, 60));
    EXPECT_TRUE(agrees(*client)) << difference(*client);
}

TEST_P(X11FramesTest, the_shadow_that_a_window_draws_itself_is_not_part_of_it)
{
    const auto client = session.makeClient(
        {.decoration = TestClient::Decoration::none, .gtkFrameExtents = std::array<std::uint32_t, 4>{26, 26, 23, 29}});
    ASSERT_TRUE(client->showFocused());
    EXPECT_TRUE(agrees(*client)) << difference(*client);
    EXPECT_LT(adapters.listedBounds(client->window())->width, client->content().width);
}

TEST_P(X11FramesTest, windows_far_outside_of_the_screen_are_followed)
{
    const auto client = session.makeClient();
    ASSERT_TRUE(client->showFocused());
    client->requestContent({-3000, -2000, 600, 400});
    EXPECT_TRUE(agrees(*client)) << difference(*client);
    client->requestContent({20000, 15000, 8000, 6000});
    EXPECT_TRUE(agrees(*client)) << difference(*client);
}

TEST_P(X11FramesTest, frames_are_found_again_after_the_window_manager_was_replaced)
{
    const auto client = session.makeClient();
    ASSERT_TRUE(client->showFocused());
    ASSERT_TRUE(agrees(*client)) << difference(*client);
    session.stopWindowManager();
    session.startWindowManager();
    ASSERT_TRUE(client->focus());
    ASSERT_TRUE(client->moveTo(500, 400));
    EXPECT_TRUE(agrees(*client)) << difference(*client);
}

TEST_P(X11FramesTest, a_rolled_up_window_shows_its_title_bar_alone)
{
    const auto client = session.makeClient();
    ASSERT_TRUE(client->showFocused());
    ASSERT_TRUE(client->setState("_NET_WM_STATE_SHADED", true));
    EXPECT_TRUE(adapters.waitUntil([&] {
        const auto extents = client->frameExtents(); // some window managers change them a moment later
        const auto bounds = adapters.listedBounds(client->window());
        return bounds && bounds->height == extents[2] + extents[3];
    }));
    EXPECT_THAT(adapters.listedWindows(), testing::Contains(client->window()));
    ASSERT_TRUE(client->setState("_NET_WM_STATE_SHADED", false));
    EXPECT_TRUE(agrees(*client)) << difference(*client);
}

TEST_P(X11FramesTest, the_list_has_windows_front_to_back)
{
    std::vector<std::unique_ptr<TestClient>> made;
    for (const int x : {100, 300, 500}) {
        made.push_back(session.makeClient({.content = {x, 200, 300, 200}}));
        ASSERT_TRUE(made.back()->showFocused());
    }
    ASSERT_TRUE(made[0]->focus());
    ASSERT_TRUE(made[0]->raise());
    EXPECT_TRUE(adapters.waitUntil([&] {
        return adapters.listedWindows() == std::vector{made[0]->window(), made[2]->window(), made[1]->window()};
    }));
}

TEST_P(X11FramesTest, state_type_and_opacity_are_listed)
{
    const auto above = session.makeClient();
    ASSERT_TRUE(above->showFocused());
    ASSERT_TRUE(above->setState("_NET_WM_STATE_ABOVE", true));
    above->connection().setValues(above->window(), "_NET_WM_WINDOW_OPACITY", XCB_ATOM_CARDINAL, {0x80000000});
    above->connection().synchronize();
    const auto dock = session.makeClient({.content = {0, 0, 1920, 30}, .type = "_NET_WM_WINDOW_TYPE_DOCK"});
    ASSERT_TRUE(dock->show());
    const auto infoOf = [&](const TestClient& client) {
        const auto number = static_cast<WindowNumber>(client.window());
        const auto list = adapters.windowInfoSource.copyWindowInfo(WindowListOptions::includingWindow, number);
        return list->empty() ? WindowInfo{} : list->front();
    };
    EXPECT_TRUE(adapters.waitUntil([&] { return infoOf(*dock).layer == WindowInfoValue(std::int64_t{20}); }));
    EXPECT_TRUE(adapters.waitUntil([&] { return std::abs(std::get<double>(infoOf(*above).alpha) - 0.5) < 1e-6; }));
    EXPECT_EQ(std::get<double>(infoOf(*dock).alpha), 1);
    EXPECT_EQ(infoOf(*above).layer, WindowInfoValue(std::int64_t{0})) << "it has the focus";
    const auto other = session.makeClient({.content = {1200, 500, 300, 200}});
    ASSERT_TRUE(other->showFocused());
    EXPECT_TRUE(adapters.waitUntil([&] { return infoOf(*above).layer == WindowInfoValue(std::int64_t{3}); }));
}

INSTANTIATE_TEST_SUITE_P(Under, X11FramesTest,
                         testing::Values(WindowManager::openbox, WindowManager::xfwm4, WindowManager::metacity),
                         nameOfParameter);

} // namespace
} // namespace haloric
