#include "drawing/raster/ImageRaster.h"

#include "drawing/Canvas.h"

namespace haloric {
namespace {

constexpr std::uint32_t kStripePixel = 0xffff0000;

// A red stripe, one point high, along the edge where y is zero.
DrawnImage stripe(bool isFlipped)
{
    return {{4, 3}, false, isFlipped, [](Canvas& canvas, const SystemColors&) {
                canvas.fillRect({0, 0, 4, 1}, {1, 0, 0, 1}, CompositingOperation::sourceOver);
            }};
}

TEST(ImageRaster, a_picture_has_its_size_in_pixels_of_the_scale)
{
    const Picture picture = ImageRaster::render(stripe(false), 2, {});
    EXPECT_EQ(picture.width, 8);
    EXPECT_EQ(picture.height, 6);
}

TEST(ImageRaster, the_origin_is_at_the_bottom)
{
    const Picture picture = ImageRaster::render(stripe(false), 1, {});
    EXPECT_EQ(picture.at(0, 2), kStripePixel);
    EXPECT_EQ(picture.at(0, 0), 0U);
}

TEST(ImageRaster, a_flipped_picture_has_its_origin_at_the_top)
{
    const Picture picture = ImageRaster::render(stripe(true), 2, {});
    EXPECT_EQ(picture.at(7, 0), kStripePixel);
    EXPECT_EQ(picture.at(7, 1), kStripePixel);
    EXPECT_EQ(picture.at(7, 2), 0U);
}

TEST(ImageRaster, colours_of_the_system_reach_the_drawing_and_pixels_are_premultiplied)
{
    const DrawnImage image{{1, 1}, false, false, [](Canvas& canvas, const SystemColors& colors) {
                               canvas.fillRect({0, 0, 1, 1}, colors.separator, CompositingOperation::copy);
                           }};
    EXPECT_EQ(ImageRaster::render(image, 1, {.separator = {0, 0, 1, 0.5}}).at(0, 0), 0x80000080);
}

TEST(ImageRaster, a_picture_without_a_drawing_function_is_transparent)
{
    const Picture picture = ImageRaster::render({.size = {2, 2}, .draw = {}}, 1, {});
    EXPECT_EQ(picture, Picture(2, 2));
    EXPECT_EQ(ImageRaster::render({}, 1, {}), Picture(0, 0));
}

} // namespace
} // namespace haloric
