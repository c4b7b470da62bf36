#include "x11/adapters/ScreenAdapters.h"

namespace haloric {
namespace {

TEST(X11CutRing, the_part_of_a_far_too_large_ring_on_the_screen_is_shown)
{
    X11Session session(WindowManager::none);
    ScreenAdapters adapters(session);
    PatchView view;
    view.ringColor = kRed;
    // The left edge is at pixel 100; the others are outside the screen.
    const auto window = adapters.make(view, {100, -9000, 30000, 20000});
    window->orderFront();
    EXPECT_TRUE(adapters.waitForPixel(102, 540, kRedPixel));
    EXPECT_EQ(adapters.pixelAt(97, 540), X11Session::kDesktopColor);
    EXPECT_EQ(adapters.pixelAt(107, 540), X11Session::kDesktopColor);
    EXPECT_EQ(session.observer().overlaysOf(getpid()).front().geometry, (ScreenRect{100, 0, 1820, 1080}));
}

constexpr Pixel kDesktop = X11Session::kDesktopColor;

struct X11RingTest : testing::Test {
    X11Session session{WindowManager::openbox};
    ScreenAdapters adapters{session};
    PatchView view;
    std::unique_ptr<ToolkitWindow> window = adapters.make(view, {100, 600, 200, 100});

    X11RingTest()
    {
        view.ringColor = kRed;
        view.patches = {{{50, 40, 20, 20}, kGreen}};
    }
};

TEST_F(X11RingTest, without_a_compositor_the_strokes_alone_are_shown_and_opaque)
{
    view.ringColor = Color{1, 0, 0, 0.5};
    window->orderFront();
    EXPECT_TRUE(adapters.waitForPixel(101, 430, kRedPixel));
    EXPECT_TRUE(adapters.waitForPixel(298, 430, kRedPixel));
    EXPECT_EQ(adapters.pixelAt(200, 381), kRedPixel);
    EXPECT_EQ(adapters.pixelAt(200, 478), kRedPixel);
    EXPECT_EQ(adapters.pixelAt(105, 430), kDesktop);
    EXPECT_EQ(adapters.pixelAt(160, 430), kDesktop); // the patch
    EXPECT_EQ(adapters.pixelAt(99, 430), kDesktop);
}

TEST_F(X11RingTest, the_log_says_it_once)
{
    PatchView other;
    const auto second = adapters.make(other, {500, 600, 200, 100});
    EXPECT_THAT(adapters.log.lines, testing::ElementsAre(testing::HasSubstr("without glow, tint and dimming")));
}

TEST_F(X11RingTest, the_ring_follows_colour_size_and_content)
{
    window->orderFront();
    ASSERT_TRUE(adapters.waitForPixel(101, 430, kRedPixel));
    view.ringColor = kGreen;
    window->setNeedsDisplay();
    EXPECT_TRUE(adapters.waitForPixel(101, 430, kGreenPixel));
    window->setFrame({100, 500, 300, 200}, false);
    EXPECT_TRUE(adapters.waitForPixel(398, 550, kGreenPixel));
    EXPECT_TRUE(adapters.waitForPixel(298, 430, kDesktop));
    view.ringColor.reset();
    window->setNeedsDisplay();
    EXPECT_TRUE(adapters.waitForPixel(398, 550, kDesktop));
    EXPECT_TRUE(adapters.waitForPixel(101, 430, kDesktop));
}

TEST_F(X11RingTest, windows_change_their_kind_with_the_compositor)
{
    window->orderFront();
    ASSERT_TRUE(adapters.waitForPixel(101, 430, kRedPixel));
    session.startCompositor();
    EXPECT_TRUE(adapters.waitForPixel(160, 430, kGreenPixel));
    EXPECT_TRUE(adapters.toolkitWindows.areTranslucent());
    session.stopCompositor();
    EXPECT_TRUE(adapters.waitForPixel(160, 430, kDesktop));
    EXPECT_TRUE(adapters.waitForPixel(101, 430, kRedPixel));
    EXPECT_EQ(adapters.log.lines.size(), 1U);
}

TEST_F(X11RingTest, a_window_moved_past_the_toolkit_stays_there_when_it_changes_its_kind)
{
    window->orderFront();
    ASSERT_TRUE(adapters.waitForPixel(101, 430, kRedPixel));
    const std::uint32_t elsewhere[] = {700, 700};
    xcb_configure_window(session.observer().raw(), static_cast<xcb_window_t>(window->windowNumber()),
                         XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y, elsewhere);
    session.observer().synchronize();
    session.startCompositor();
    EXPECT_TRUE(adapters.waitForPixel(760, 750, kGreenPixel));
    EXPECT_EQ(adapters.rectOf(*window), (ScreenRect{700, 700, 200, 100}));
    EXPECT_EQ(window->frame(), (Rect{100, 600, 200, 100}));
}

TEST_F(X11RingTest, a_hidden_window_stays_hidden_when_it_changes_its_kind)
{
    session.startCompositor();
    ASSERT_TRUE(adapters.waitUntil([&] { return adapters.toolkitWindows.areTranslucent(); }));
    adapters.settle();
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(adapters.pixelAt(101, 430), kDesktop);
}

TEST(X11RingOnBareServer, without_translucent_windows_it_stays_a_ring)
{
    X11Session session(WindowManager::openbox, Compositor::none, {.arguments = {"-extension", "Composite"}});
    ScreenAdapters adapters(session);
    PatchView view;
    view.ringColor = kRed;
    const auto window = adapters.make(view, {100, 600, 200, 100});
    window->orderFront();
    EXPECT_TRUE(adapters.waitForPixel(101, 430, kRedPixel));
    EXPECT_FALSE(adapters.toolkitWindows.areTranslucent());
}

} // namespace
} // namespace haloric
