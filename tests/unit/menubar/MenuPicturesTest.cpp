// The pictures of the menu against those that were looked at and kept.
#include "drawing/raster/ImageRaster.h"
#include "menubar/AccentPresets.h"
#include "menubar/MenuBarIcon.h"
#include "menubar/Swatch.h"
#include "support/GoldenPictures.h"

namespace haloric {
namespace {

class MenuPicturesTest : public testing::TestWithParam<double> {};

// The colours of macOS in its light and its dark appearance.
const SystemColors kLight{.separator = {0, 0, 0, 0.1}};
const SystemColors kDark{.separator = {1, 1, 1, 0.1}};

// All of them, side by side in the menu's order.
Picture swatches(double scale, const SystemColors& colors)
{
    Picture row;
    for (std::size_t i = 0; i < kAccentPresets.size(); ++i) {
        const Picture one = ImageRaster::render(swatch(kAccentPresets[i].color), scale, colors);
        if (i == 0)
            row = Picture(one.width * static_cast<int>(kAccentPresets.size()), one.height);
        for (int y = 0; y < one.height; ++y)
            for (int x = 0; x < one.width; ++x)
                row.buffer().row(y)[static_cast<int>(i) * one.width + x] = one.at(x, y);
    }
    return row;
}

TEST_P(MenuPicturesTest, the_icon_equals_the_kept_picture)
{
    Picture icon = ImageRaster::render(MenuBarIcon::make(), GetParam(), {});
    GoldenPictures::compare(GoldenPictures::scaled("menu-bar-icon", GetParam()), icon);
}

TEST_P(MenuPicturesTest, swatches_in_a_light_menu_equal_the_kept_picture)
{
    Picture row = swatches(GetParam(), kLight);
    GoldenPictures::compare(GoldenPictures::scaled("swatches-light", GetParam()), row);
}

TEST_P(MenuPicturesTest, swatches_in_a_dark_menu_equal_the_kept_picture)
{
    Picture row = swatches(GetParam(), kDark);
    GoldenPictures::compare(GoldenPictures::scaled("swatches-dark", GetParam()), row);
}

INSTANTIATE_TEST_SUITE_P(Scales, MenuPicturesTest, testing::Values(1.0, 2.0));

} // namespace
} // namespace haloric
