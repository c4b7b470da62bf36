// Settings and windows can hold any number. None may crash, overflow or take for ever; sanitizers run this as well.
#include "drawing/raster/Picture.h"
#include "drawing/raster/RasterCanvas.h"

#include <limits>
#include <random>

namespace haloric {
namespace {

using Limits = std::numeric_limits<double>;

const double kStrange[] = {Limits::quiet_NaN(),
                           Limits::infinity(),
                           -Limits::infinity(),
                           Limits::max(),
                           -Limits::max(),
                           Limits::min(),
                           Limits::denorm_min(),
                           1e18,
                           -1e18,
                           1e9,
                           -1e9,
                           4e6,
                           -1.0,
                           -0.0,
                           0.0,
                           0.3};

struct Drawer {
    Picture picture{40, 30};
    RasterResources resources;
    RasterCanvas canvas;

    Drawer(double scale, Size view, RasterWays ways)
        : canvas(resources, picture.buffer(), {scale, view, 0, 0}, RasterContents::transparent, ways)
    {
    }

    void drawAll(const Rect& rect, double radius, double width, double blur, const Color& color)
    {
        canvas.save();
        canvas.clip(Path::rect({0, 0, 40, 30}).add(RoundedRect{rect, radius}), FillRule::evenOdd);
        canvas.setShadow({blur, {0, 0}, color});
        canvas.fill(Path::roundedRect(rect, radius), color, FillRule::nonZero);
        canvas.restore();
        canvas.save();
        canvas.setShadow({std::min(blur, 8.0), {blur, width}, color});
        canvas.fill(Path::rect(rect), color, FillRule::nonZero);
        canvas.restore();
        canvas.stroke(Path::roundedRect(rect, radius), color, width);
        canvas.stroke(Path::rect(rect).add(RoundedRect{{3, 3, 20, 20}, radius}), color, width);
        canvas.fill(Path::rect({0, 0, 40, 30}).add(RoundedRect{rect, radius}), color, FillRule::evenOdd);
        canvas.fillRect(rect, color, CompositingOperation::copy);
        canvas.setBlendMode(BlendMode::clear);
        canvas.fill(Path::roundedRect(rect, radius), color, FillRule::nonZero);
        canvas.setBlendMode(BlendMode::normal);
    }

    bool isPremultiplied() const
    {
        return std::all_of(picture.pixels.begin(), picture.pixels.end(), [](std::uint32_t pixel) {
            const std::uint32_t alpha = alphaOf(pixel);
            return (pixel >> 16 & 255) <= alpha && (pixel >> 8 & 255) <= alpha && (pixel & 255) <= alpha;
        });
    }
};

class RasterStrangeInput : public testing::TestWithParam<RasterWays> {};

TEST_P(RasterStrangeInput, one_strange_number_at_a_time_does_no_harm)
{
    for (const double strange : kStrange) {
        Drawer drawer(1, {40, 30}, GetParam());
        const Color color{0.2, 0.4, 0.9, 0.7};
        drawer.drawAll({strange, 4, 20, 15}, 5, 3, 6, color);
        drawer.drawAll({4, strange, 20, 15}, 5, 3, 6, color);
        drawer.drawAll({4, 4, strange, 15}, 5, 3, 6, color);
        drawer.drawAll({4, 4, 20, strange}, 5, 3, 6, color);
        drawer.drawAll({4, 4, 20, 15}, strange, 3, 6, color);
        drawer.drawAll({4, 4, 20, 15}, 5, strange, 6, color);
        drawer.drawAll({4, 4, 20, 15}, 5, 3, strange, color);
        drawer.drawAll({4, 4, 20, 15}, 5, 3, 6, {strange, 0.5, strange, 0.5});
        drawer.drawAll({4, 4, 20, 15}, 5, 3, 6, {0.5, 0.5, 0.5, strange});
        EXPECT_TRUE(drawer.isPremultiplied()) << strange;
    }
}

TEST_P(RasterStrangeInput, strange_scales_and_views_do_no_harm)
{
    for (const double strange : kStrange) {
        Drawer(strange, {40, 30}, GetParam()).drawAll({4, 4, 20, 15}, 5, 3, 6, {1, 1, 1, 1});
        Drawer(1, {strange, 30}, GetParam()).drawAll({4, 4, 20, 15}, 5, 3, 6, {1, 1, 1, 1});
        Drawer(1, {40, strange}, GetParam()).drawAll({4, 4, 20, 15}, 5, 3, 6, {1, 1, 1, 1});
    }
}

TEST_P(RasterStrangeInput, strange_numbers_together_do_no_harm)
{
    std::mt19937 random(11);
    const auto pick = [&] { return random() % 3 == 0 ? 5.5 : kStrange[random() % std::size(kStrange)]; };
    for (int round = 0; round < 200; ++round) {
        Drawer drawer(1.25, {32, 24}, GetParam());
        drawer.drawAll({pick(), pick(), pick(), pick()}, pick(), pick(), pick(), {pick(), pick(), pick(), pick()});
        EXPECT_TRUE(drawer.isPremultiplied()) << round;
    }
}

INSTANTIATE_TEST_SUITE_P(Ways, RasterStrangeInput, testing::Values(RasterWays::fast, RasterWays::generalOnly));

TEST(RasterStrangeInput, a_shape_of_no_size_draws_nothing)
{
    for (const RasterWays ways : {RasterWays::fast, RasterWays::generalOnly}) {
        Drawer drawer(1, {40, 30}, ways);
        const Color color{1, 1, 1, 1};
        for (const Rect& rect : {Rect{4, 4, 0, 10}, Rect{4, 4, 10, -3}, Rect{4, 4, Limits::quiet_NaN(), 10}}) {
            drawer.canvas.fill(Path::roundedRect(rect, 3), color, FillRule::nonZero);
            drawer.canvas.stroke(Path::roundedRect(rect, 3), color, 2);
            drawer.canvas.fillRect(rect, color, CompositingOperation::copy);
        }
        EXPECT_EQ(drawer.picture, Picture(40, 30));
    }
}

} // namespace
} // namespace haloric
