#include "drawing/RingCanvas.h"

#include <cmath>
#include <limits>

namespace haloric {
namespace {

using testing::ElementsAre;

const Color kGreen{0, 1, 0, 0.5};

int timesCovered(const std::vector<PixelRect>& rects, int x, int y)
{
    return static_cast<int>(std::count_if(rects.begin(), rects.end(), [&](const PixelRect& rect) {
        return rect.contains({x, y, 1, 1});
    }));
}

TEST(RingCanvas, a_ring_with_sharp_corners_is_four_rectangles_in_an_opaque_colour)
{
    RingCanvas canvas(1, {100, 80});
    canvas.stroke(Path::rect({11.5, 11.5, 47, 37}), kGreen, 3);
    EXPECT_THAT(canvas.rects(), ElementsAre(PixelRect{10, 30, 50, 3}, PixelRect{10, 33, 3, 34},
                                            PixelRect{57, 33, 3, 34}, PixelRect{10, 67, 50, 3}));
    EXPECT_EQ(canvas.color(), kGreen.withAlpha(1));
}

TEST(RingCanvas, round_corners_are_the_pixels_whose_middle_lies_in_the_stroke)
{
    RingCanvas canvas(2, {100, 100});
    canvas.stroke(Path::roundedRect({10, 10, 60, 50}, 12), kGreen, 4);
    // Outline 8...72 by 8...62 points: 16...144 by 76...184 pixels, radius 28; inner radius 20.
    const auto distanceInside = [](double x, double y, double inset) {
        const double dx = std::max({16 + 28 - x, x - (144 - 28), 0.0});
        const double dy = std::max({76 + 28 - y, y - (184 - 28), 0.0});
        if (dx > 0 && dy > 0)
            return 28 - inset - std::hypot(dx, dy);
        return std::min({x - 16, 144 - x, y - 76, 184 - y}) - inset;
    };
    for (int y = 60; y < 200; ++y)
        for (int x = 0; x < 160; ++x) {
            const double outer = distanceInside(x + 0.5, y + 0.5, 0);
            const double inner = distanceInside(x + 0.5, y + 0.5, 8);
            if (std::abs(outer) < 0.75 || std::abs(inner) < 0.75)
                continue; // on an edge either is right
            ASSERT_EQ(timesCovered(canvas.rects(), x, y), outer > 0 && inner < 0 ? 1 : 0) << x << ", " << y;
        }
}

TEST(RingCanvas, equal_rows_share_a_rectangle)
{
    RingCanvas canvas(1, {2600, 1500});
    canvas.stroke(Path::roundedRect({20, 20, 2560, 1440}, 11), kGreen, 3);
    EXPECT_LE(canvas.rects().size(), 40u);
}

TEST(RingCanvas, a_thin_stroke_is_a_whole_pixel_wide)
{
    RingCanvas canvas(1, {100, 80});
    canvas.stroke(Path::rect({10, 10, 20, 20}), kGreen, 0.25);
    EXPECT_EQ(timesCovered(canvas.rects(), 10, 60), 1);
    EXPECT_EQ(timesCovered(canvas.rects(), 11, 60), 0);
}

TEST(RingCanvas, what_lies_outside_of_the_view_is_cut_off)
{
    RingCanvas canvas(1, {50, 50});
    canvas.stroke(Path::rect({-10, 10, 30, 100}), kGreen, 4);
    for (const PixelRect& rect : canvas.rects())
        EXPECT_TRUE((PixelRect{0, 0, 50, 50}).contains(rect));
    EXPECT_EQ(timesCovered(canvas.rects(), 20, 10), 1);
}

TEST(RingCanvas, everything_but_visible_strokes_is_dropped)
{
    RingCanvas canvas(1, {100, 80});
    canvas.save();
    canvas.clip(Path::rect({0, 0, 5, 5}), FillRule::evenOdd);
    canvas.setShadow({18, {0, 0}, kGreen});
    canvas.setBlendMode(BlendMode::clear);
    canvas.fill(Path::rect({0, 0, 50, 50}), kGreen, FillRule::nonZero);
    canvas.fillRect({0, 0, 50, 50}, kGreen, CompositingOperation::sourceOver);
    canvas.strokeLines(std::vector<Polyline>{{{{0, 0}, {50, 50}}}}, kGreen, {4, LineCap::round, LineJoin::round});
    canvas.stroke(Path::rect({10, 10, 20, 20}), kGreen.withAlpha(0), 3);
    canvas.restore();
    EXPECT_TRUE(canvas.rects().empty());
    EXPECT_FALSE(canvas.color());
}

TEST(RingCanvas, strange_numbers_do_no_harm)
{
    const double none = std::numeric_limits<double>::quiet_NaN();
    const double infinite = std::numeric_limits<double>::infinity();
    RingCanvas canvas(1, {100, 80});
    for (const double strange : {none, infinite, -infinite, 1e300, -1e300, -1.0, 0.0}) {
        canvas.stroke(Path::roundedRect({10, 10, 20, 20}, 3), kGreen, strange);
        canvas.stroke(Path::roundedRect({10, 10, 20, 20}, strange), kGreen, 3);
        canvas.stroke(Path::roundedRect({strange, 10, 20, strange}, 3), kGreen, 3);
        canvas.stroke(Path::roundedRect({10, 10, 20, 20}, 3), {0, 1, 0, strange}, 3);
    }
    for (const PixelRect& rect : canvas.rects())
        EXPECT_TRUE((PixelRect{0, 0, 100, 80}).contains(rect));
}

} // namespace
} // namespace haloric
