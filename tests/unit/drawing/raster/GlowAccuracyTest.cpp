// The glow's pixels against the exact one. Bounds in 1/255 of alpha: 1 for a blur of 8 pixels or more, of which
// rounding to whole values takes 0.5; 2 for smaller ones, whose kernel has few pixels to be sampled at.
#include "drawing/raster/Picture.h"
#include "drawing/raster/RasterCanvas.h"
#include "support/GlowReference.h"

#include <cmath>

namespace haloric {
namespace {

struct Glow {
    Rect window; // points; the view is kView points large
    double cornerRadius = 0;
    double blurRadius = 0;
    double scale = 1;
};

void PrintTo(const Glow& glow, std::ostream* out)
{
    *out << "window " << glow.window.x << ", " << glow.window.y << ", " << glow.window.width << ", "
         << glow.window.height << "; corner " << glow.cornerRadius << "; blur " << glow.blurRadius << "; scale "
         << glow.scale;
}

double errorOf(const Glow& glow)
{
    const double margin = 2 * glow.blurRadius + 4;
    const Size view{std::ceil(glow.window.maxX() + margin), std::ceil(glow.window.maxY() + margin)};
    const double scale = glow.scale;
    Picture picture(static_cast<int>(std::ceil(view.width * scale)), static_cast<int>(std::ceil(view.height * scale)));
    RasterResources resources;
    RasterCanvas canvas(resources, picture.buffer(), {scale, view, 0, 0}, RasterContents::transparent);
    const Color white{1, 1, 1, 1};
    canvas.clip(Path::rect({0, 0, view.width, view.height}).add(RoundedRect{glow.window, glow.cornerRadius}),
                FillRule::evenOdd);
    canvas.setShadow({glow.blurRadius, {0, 0}, white});
    canvas.fill(Path::roundedRect(glow.window, glow.cornerRadius), white, FillRule::nonZero);
    EXPECT_EQ(resources.glows.patchesBuilt(), 1u);

    const double radius = std::min({glow.cornerRadius, glow.window.width / 2, glow.window.height / 2});
    const GlowReference reference(picture.width, picture.height, glow.window.minX() * scale,
                                  (view.height - glow.window.maxY()) * scale, glow.window.maxX() * scale,
                                  (view.height - glow.window.minY()) * scale, radius * scale, glow.blurRadius * scale);
    double largest = 0;
    for (int y = 0; y < picture.height; ++y)
        for (int x = 0; x < picture.width; ++x)
            largest = std::max(largest, std::abs(alphaOf(picture.at(x, y)) - 255 * reference.alpha(x, y)));
    return largest;
}

class GlowAccuracy : public testing::TestWithParam<Glow> {};

TEST_P(GlowAccuracy, stays_within_the_bound)
{
    const double bound = GetParam().blurRadius * GetParam().scale >= 8 ? 1 : 2;
    const double error = errorOf(GetParam());
    RecordProperty("error_of_255", std::to_string(error));
    EXPECT_LE(error, bound);
}

std::vector<Glow> glows()
{
    std::vector<Glow> all;
    for (const double blur : {1.0, 2.0, 4.0, 6.0, 8.0, 18.0, 37.0, 60.0})
        for (const double corner : {0.0, 5.0, 11.0, 20.0})
            all.push_back({{2 * blur + 5, 2 * blur + 6, 160, 120}, corner, blur, 1});
    all.push_back({{210, 215, 60, 50}, 20, 100, 1}); // rows that are interpolated
    for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
        all.push_back({{50.25, 51.6, 90.3, 70.7}, 11, 18, scale}); // edges between pixels
        all.push_back({{20.5, 19.25, 150, 90.125}, 8, 4, scale});
        all.push_back({{42, 43, 24, 18}, 11, 18, scale});        // corners that see one another
        all.push_back({{42.4, 43.7, 30.2, 200}, 11, 18, scale}); // only across
        all.push_back({{42.4, 43.7, 200, 21.9}, 40, 18, scale}); // only down; corners limited to half the height
        all.push_back({{25, 26, 1, 1}, 5, 10, scale});
    }
    return all;
}

INSTANTIATE_TEST_SUITE_P(Glows, GlowAccuracy, testing::ValuesIn(glows()));

} // namespace
} // namespace haloric
