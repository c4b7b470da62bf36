#include "x11/adapters/ScreenAdapters.h"

#include <array>
#include <limits>

namespace haloric {
namespace {

// The screen is 1920 x 1080 pixels at one pixel a point, so pixel rows count down from 1080 points.
struct X11ToolkitWindowTest : testing::Test {
    X11Session session{WindowManager::openbox, Compositor::picom};
    std::unique_ptr<TestClient> bystander = session.makeClient({.content = {1500, 700, 100, 100}});
    ScreenAdapters adapters{session};
    PatchView view;
    static constexpr Pixel kDesktop = X11Session::kDesktopColor;

    // 200 x 100 pixels at (100, 380), red in the lower left corner and green in the upper right one.
    std::unique_ptr<ToolkitWindow> window = adapters.make(view, {100, 600, 200, 100});

    X11ToolkitWindowTest() { view.patches = {{{0, 0, 50, 20}, kRed}, {{150, 80, 50, 20}, kGreen}}; }

    // The compositor takes the screen over with the first window that there is.
    void SetUp() override { ASSERT_TRUE(bystander->show()); }

    void show()
    {
        window->orderFront();
        ASSERT_TRUE(adapters.waitForPixel(110, 470, kRedPixel));
        ASSERT_TRUE(adapters.waitForPixel(290, 390, kGreenPixel));
        adapters.settle();
    }
};

TEST_F(X11ToolkitWindowTest, what_the_view_draws_is_on_the_screen_at_the_frame)
{
    EXPECT_FALSE(window->isVisible());
    show();
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(window->frame(), (Rect{100, 600, 200, 100}));
    EXPECT_EQ(adapters.rectOf(*window), (ScreenRect{100, 380, 200, 100}));
    EXPECT_TRUE(adapters.waitForPixel(149, 460, kRedPixel));
    EXPECT_TRUE(adapters.waitForPixel(150, 460, kDesktop));
    EXPECT_TRUE(adapters.waitForPixel(149, 459, kDesktop));
}

TEST_F(X11ToolkitWindowTest, showing_draws_each_part_once)
{
    show();
    adapters.settle();
    EXPECT_EQ(view.draws, 2); // two patches that lie apart
}

TEST_F(X11ToolkitWindowTest, a_move_is_sent_at_once_and_draws_nothing)
{
    show();
    const int draws = view.draws;
    window->setFrameOrigin({400, 500});
    EXPECT_TRUE(session.observer().waitUntil([&] {
        return adapters.rectOf(*window) == ScreenRect{400, 480, 200, 100};
    })); // the loop has not turned
    EXPECT_TRUE(adapters.waitForPixel(410, 570, kRedPixel));
    EXPECT_TRUE(adapters.waitForPixel(110, 470, kDesktop));
    adapters.settle();
    EXPECT_EQ(view.draws, draws);
}

TEST_F(X11ToolkitWindowTest, a_move_by_a_part_of_a_pixel_draws_again)
{
    adapters.scale.set({1.25, {0, 0, 1920, 1080}});
    window->orderFront();
    adapters.settle();
    ASSERT_TRUE(adapters.waitUntil([&] { return view.draws > 0; }));
    for (int turn = 0; turn < 5; ++turn)
        adapters.settle(); // exposures have been answered
    const int draws = view.draws;
    window->setFrameOrigin({100.2, 600}); // the same pixels, a quarter of one to the right
    adapters.settle();
    EXPECT_GT(view.draws, draws);
    const int after = view.draws;
    window->setFrameOrigin({100.2, 592}); // ten pixels down
    adapters.settle();
    EXPECT_EQ(view.draws, after);
}

TEST_F(X11ToolkitWindowTest, requests_of_one_turn_are_drawn_together)
{
    show();
    view.patches = {{{0, 0, 50, 20}, kGreen}};
    const int draws = view.draws;
    window->setNeedsDisplay();
    window->setNeedsDisplay(std::array{Rect{0, 0, 10, 10}, Rect{5, 5, 10, 10}});
    window->setNeedsDisplay();
    EXPECT_EQ(view.draws, draws);
    EXPECT_TRUE(adapters.waitForPixel(110, 470, kGreenPixel));
    EXPECT_EQ(view.draws, draws + 1);
}

TEST_F(X11ToolkitWindowTest, only_the_parts_asked_for_are_drawn)
{
    show();
    view.patches = {{{0, 0, 50, 20}, kGreen}, {{150, 80, 50, 20}, kRed}};
    window->setNeedsDisplay(std::array{Rect{0, 0, 25, 100}});
    EXPECT_TRUE(adapters.waitForPixel(110, 470, kGreenPixel));
    EXPECT_EQ(adapters.pixelAt(140, 470), kRedPixel);   // the same patch, outside the part
    EXPECT_EQ(adapters.pixelAt(290, 390), kGreenPixel); // the other one
}

TEST_F(X11ToolkitWindowTest, what_the_view_leaves_out_becomes_transparent)
{
    show();
    view.patches.pop_back();
    window->setNeedsDisplay();
    EXPECT_TRUE(adapters.waitForPixel(290, 390, kDesktop));
    EXPECT_EQ(adapters.pixelAt(110, 470), kRedPixel);
}

TEST_F(X11ToolkitWindowTest, a_change_of_size_draws_the_whole_anew)
{
    show();
    window->setFrame({100, 500, 300, 200}, false); // grows to the right and downward: the view's origin moves
    EXPECT_TRUE(adapters.waitForPixel(110, 570, kRedPixel));
    EXPECT_TRUE(adapters.waitForPixel(290, 390, kDesktop));
    EXPECT_TRUE(adapters.waitForPixel(110, 470, kDesktop));
    EXPECT_TRUE(adapters.waitForPixel(260, 490, kGreenPixel)); // 150, 80 from the new lower left corner
    EXPECT_EQ(adapters.rectOf(*window), (ScreenRect{100, 380, 300, 200}));
    adapters.settle();
    EXPECT_EQ(view.draws, 4); // the exposure of the grown part does not draw it a second time
}

TEST_F(X11ToolkitWindowTest, what_the_server_loses_is_drawn_again)
{
    show();
    xcb_connection_t* other = session.observer().raw();
    xcb_clear_area(other, 1, static_cast<xcb_window_t>(window->windowNumber()), 0, 80, 30, 20);
    session.observer().synchronize();
    EXPECT_TRUE(adapters.waitUntil([&] { return view.draws == 3; }));
    EXPECT_TRUE(adapters.waitForPixel(110, 470, kRedPixel));
}

TEST_F(X11ToolkitWindowTest, a_hidden_window_draws_nothing_and_comes_back_whole)
{
    show();
    window->orderOut();
    EXPECT_FALSE(window->isVisible());
    EXPECT_TRUE(adapters.waitForPixel(110, 470, kDesktop));
    const int draws = view.draws;
    window->setNeedsDisplay();
    adapters.settle();
    EXPECT_EQ(view.draws, draws);
    show();
}

TEST_F(X11ToolkitWindowTest, a_destroyed_window_leaves_nothing)
{
    show();
    window.reset();
    EXPECT_TRUE(adapters.waitForPixel(110, 470, kDesktop));
}

TEST_F(X11ToolkitWindowTest, a_frame_is_set_again_after_a_move_past_the_toolkit)
{
    show();
    const std::uint32_t elsewhere[] = {700, 700};
    xcb_configure_window(session.observer().raw(), static_cast<xcb_window_t>(window->windowNumber()),
                         XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y, elsewhere);
    session.observer().synchronize();
    EXPECT_EQ(window->frame(), (Rect{100, 600, 200, 100}));
    window->setFrameOrigin({100, 600});
    EXPECT_TRUE(session.observer().waitUntil([&] {
        return adapters.rectOf(*window) == ScreenRect{100, 380, 200, 100};
    }));
}

TEST_F(X11ToolkitWindowTest, a_frame_far_larger_than_the_screens_is_cut_to_them)
{
    const auto number = window->windowNumber();
    view.patches = {{{5100, 5600, 50, 20}, kRed}, {{0, 0, 100, 100}, kGreen}};
    window->setFrame({-5000, -5000, 30000, 20000}, false);
    window->orderFront();
    EXPECT_TRUE(adapters.waitForPixel(110, 470, kRedPixel));
    const auto overlays = session.observer().overlaysOf(getpid());
    ASSERT_EQ(overlays.size(), 1U);
    EXPECT_EQ(overlays.front().geometry, (ScreenRect{0, 0, 1920, 1080}));
    EXPECT_EQ(window->windowNumber(), 0) << "it is not moved past the toolkit";

    window->setFrameOrigin({-4900, -5100}); // moves what is drawn
    EXPECT_TRUE(adapters.waitForPixel(210, 570, kRedPixel));
    EXPECT_TRUE(adapters.waitForPixel(110, 470, kDesktop));

    window->setFrame({100000, 100000, 30000, 20000}, false);
    EXPECT_TRUE(adapters.waitForPixel(210, 570, kDesktop));

    window->setFrame({100, 600, 200, 100}, false);
    view.patches = {{{0, 0, 50, 20}, kRed}, {{150, 80, 50, 20}, kGreen}};
    window->setNeedsDisplay();
    show();
    EXPECT_EQ(window->windowNumber(), number);
    EXPECT_EQ(adapters.rectOf(*window), (ScreenRect{100, 380, 200, 100}));
}

TEST_F(X11ToolkitWindowTest, a_frame_a_little_larger_than_the_screen_is_whole)
{
    window->setFrame({-200, -200, 2320, 1480}, false);
    window->orderFront();
    EXPECT_TRUE(adapters.waitUntil([&] { return adapters.rectOf(*window) == ScreenRect{-200, -200, 2320, 1480}; }));
}

TEST_F(X11ToolkitWindowTest, nonsensical_frames_do_no_harm)
{
    constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    window->orderFront();
    for (const Rect& frame : {Rect{0, 0, 1e9, 50}, Rect{-1e9, -1e9, 10, 10}, Rect{1e300, 0, 1e300, 1}, Rect{0, 0, 0, 0},
                              Rect{0, 0, -5, -5}, Rect{kNan, 0, kInfinity, 10}}) {
        window->setFrame(frame, true);
        adapters.settle();
    }
    window->setFrame({100, 600, 200, 100}, true);
    show();
    EXPECT_FALSE(adapters.connection->isLost());
}

TEST_F(X11ToolkitWindowTest, compositors_draw_no_shadow_around_it)
{
    session.stopCompositor();
    ChildProcess picom({{"picom", "--backend", "xrender", "--config", "/dev/null", "--shadow", "--shadow-radius", "20"},
                        session.environment(),
                        session.server().folder() / "picom-shadow.log",
                        -1});
    ASSERT_TRUE(adapters.waitUntil([&] { return adapters.toolkitWindows.areTranslucent(); }));
    view.patches = {{{0, 0, 200, 100}, kRed}};
    window->setNeedsDisplay();
    const auto client = session.makeClient({.content = {600, 300, 300, 200}, .color = kGreenPixel});
    ASSERT_TRUE(client->showFocused());
    window->orderFront();
    ASSERT_TRUE(adapters.waitForPixel(110, 470, kRedPixel));
    const ScreenRect frame = client->visibleFrame();
    ASSERT_TRUE(adapters.waitUntil([&] { return adapters.pixelAt(frame.right() + 3, 400) != kDesktop; })); // has one
    for (const auto& [x, y] : {std::pair{303, 430}, {310, 430}, {200, 483}, {200, 490}, {97, 430}})
        EXPECT_EQ(adapters.pixelAt(x, y), kDesktop) << x << ", " << y;
}

} // namespace
} // namespace haloric
