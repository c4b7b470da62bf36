#include "hosts/linux/tray/TrayPicture.h"

#include "drawing/Canvas.h"
#include "menubar/MenuBarIcon.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace haloric {
namespace {

constexpr int kSide = 24;

// The picture's pixel over an opaque grey background: the difference of the brightest channel to it.
int contrast(std::uint32_t pixel, int background)
{
    const int rest = 255 - static_cast<int>(pixel >> 24U);
    int most = 0;
    for (unsigned shift = 0; shift < 24; shift += 8) {
        const int shown = static_cast<int>((pixel >> shift) & 0xFFU) + background * rest / 255;
        most = std::max(most, std::abs(shown - background));
    }
    return most;
}

int greatestContrast(const Picture& picture, int background)
{
    int most = 0;
    for (const std::uint32_t pixel : picture.pixels)
        most = std::max(most, contrast(pixel, background));
    return most;
}

TEST(TrayPicture, a_template_takes_the_colour_of_the_trays_text)
{
    const Picture picture = TrayPicture::draw(MenuBarIcon::make(), kSide, Color{1, 0, 0, 1});
    EXPECT_TRUE(std::ranges::any_of(picture.pixels, [](auto pixel) { return pixel == 0xFFFF0000; }));
    EXPECT_TRUE(std::ranges::all_of(picture.pixels, [](auto pixel) { return (pixel & 0xFFFFU) == 0; }));
}

TEST(TrayPicture, without_that_colour_it_is_visible_on_every_grey)
{
    const Picture picture = TrayPicture::draw(MenuBarIcon::make(), kSide, std::nullopt);
    for (int background = 0; background <= 255; ++background)
        EXPECT_GE(greatestContrast(picture, background), 80) << background;
}

TEST(TrayPicture, the_colours_of_other_images_stay)
{
    const DrawnImage red{.size = {16, 16}, .draw = [](Canvas& canvas, const SystemColors&) {
                             canvas.fill(Path::rect({0, 0, 16, 16}), {1, 0, 0, 1}, FillRule::nonZero);
                         }};
    const Picture picture = TrayPicture::draw(red, kSide, Color{0, 1, 0, 1});
    EXPECT_TRUE(std::ranges::all_of(picture.pixels, [](auto pixel) { return pixel == 0xFFFF0000; }));
}

TEST(TrayPicture, an_image_that_is_not_square_is_drawn_from_the_upper_left_corner)
{
    const DrawnImage wide{.size = {16, 8}, .draw = [](Canvas& canvas, const SystemColors&) {
                              canvas.fill(Path::rect({0, 0, 16, 8}), {1, 0, 0, 1}, FillRule::nonZero);
                          }};
    const Picture picture = TrayPicture::draw(wide, kSide, std::nullopt);
    EXPECT_EQ(picture.width, kSide);
    EXPECT_EQ(picture.height, kSide);
    EXPECT_EQ(picture.at(kSide - 1, kSide / 2 - 1), 0xFFFF0000);
    EXPECT_EQ(picture.at(0, kSide / 2), 0U);
}

TEST(TrayPicture, an_image_without_a_size_gives_transparent_pixels)
{
    const Picture picture = TrayPicture::draw({}, kSide, std::nullopt);
    EXPECT_EQ(picture, Picture(kSide, kSide));
}

} // namespace
} // namespace haloric
