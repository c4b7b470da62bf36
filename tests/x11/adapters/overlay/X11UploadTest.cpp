#include "x11/adapters/ScreenAdapters.h"

namespace haloric {
namespace {

// A screen of one colour, in a window larger than all shared segments together.
void fillScreen(ScreenAdapters& adapters, int width, int height)
{
    PatchView view;
    const Rect frame{0, 0, double(width), double(height)};
    view.patches = {{frame, kRed}};
    const auto window = adapters.make(view, frame);
    window->orderFront();
    for (const auto& [x, y] : {std::pair{0, 0}, {width - 1, 0}, {width / 2, height / 2}, {width - 1, height - 1}})
        EXPECT_TRUE(adapters.waitForPixel(x, y, kRedPixel)) << x << ", " << y;

    // And again, with the segments that the server has released.
    view.patches = {{frame, kGreen}};
    window->setNeedsDisplay();
    for (const auto& [x, y] : {std::pair{0, 0}, {width - 1, height - 1}})
        EXPECT_TRUE(adapters.waitForPixel(x, y, kGreenPixel)) << x << ", " << y;
}

TEST(X11Upload, a_window_larger_than_the_shared_memory_is_drawn_piece_by_piece)
{
    constexpr int kWidth = 3840;
    constexpr int kHeight = 2160;
    static_assert(kWidth * kHeight > int{X11ImageUploader::kMostPieces} * X11SharedPixels::kPixels);
    X11Session session(WindowManager::openbox, Compositor::picom, {.width = kWidth, .height = kHeight});
    ScreenAdapters adapters(session);
    EXPECT_TRUE(adapters.toolkitWindows.shareMemory());
    fillScreen(adapters, kWidth, kHeight);
}

TEST(X11Upload, without_shared_memory_the_pixels_go_through_the_connection)
{
    X11Session session(WindowManager::openbox, Compositor::picom, {.arguments = {"-extension", "MIT-SHM"}});
    ScreenAdapters adapters(session);
    EXPECT_FALSE(adapters.toolkitWindows.shareMemory());
    fillScreen(adapters, 1920, 1080);
}

} // namespace
} // namespace haloric
