// The views as pixels: what they promise about where they paint holds for a real canvas, too.
#include "overlay/AppDimView.h"
#include "overlay/DimView.h"
#include "overlay/HighlightView.h"

#include "drawing/raster/Picture.h"
#include "drawing/raster/RasterCanvas.h"
#include "unit/overlay/RandomHighlightViews.h"

#include <algorithm>
#include <cmath>

namespace haloric {
namespace {

class OverlayPixelsTest : public testing::Test {
protected:
    Picture draw(ContentView& view, Size size, double scale = 1)
    {
        Picture picture(static_cast<int>(std::ceil(size.width * scale)),
                        static_cast<int>(std::ceil(size.height * scale)));
        RasterCanvas canvas(m_resources, picture.buffer(), {scale, size, 0, 0}, RasterContents::transparent);
        view.draw(canvas, {0, 0, size.width, size.height});
        return picture;
    }

    // Clears in `picture` every pixel that one of the rectangles touches.
    static void wipe(Picture& picture, const std::vector<Rect>& rects, double height, double scale)
    {
        for (const Rect& rect : rects) {
            const auto pixel = [](double value, int limit) {
                return static_cast<int>(std::clamp(value, 0.0, static_cast<double>(limit)));
            };
            const int left = pixel(std::floor(rect.minX() * scale), picture.width);
            const int right = pixel(std::ceil(rect.maxX() * scale), picture.width);
            const int top = pixel(std::floor((height - rect.maxY()) * scale), picture.height);
            const int bottom = pixel(std::ceil((height - rect.minY()) * scale), picture.height);
            for (int y = top; y < bottom; ++y)
                for (int x = left; x < right; ++x)
                    picture.pixels[static_cast<std::size_t>(y * picture.width + x)] = 0;
        }
    }

    static int alphaAt(const Picture& picture, int x, int y) { return static_cast<int>(picture.at(x, y) >> 24); }
    static bool isTransparent(const Picture& picture)
    {
        return std::ranges::all_of(picture.pixels, [](std::uint32_t pixel) { return pixel == 0; });
    }

private:
    RasterResources m_resources;
};

Size sizeOf(const HighlightView& view)
{
    return {std::ceil(2 * view.windowRect.x + view.windowRect.width),
            std::ceil(2 * view.windowRect.y + view.windowRect.height)};
}

TEST_F(OverlayPixelsTest, the_highlight_leaves_every_pixel_outside_its_painted_area_transparent)
{
    RandomHighlightViews random;
    int painted = 0;
    for (int i = 0; i < 400; ++i) {
        HighlightView view = random.make();
        const Size size = sizeOf(view);
        const double scale = random.pick({1, 1.5, 2});
        Picture picture = draw(view, size, scale);
        painted += isTransparent(picture) ? 0 : 1;
        wipe(picture, view.paintedArea({0, 0, size.width, size.height}), size.height, scale);
        ASSERT_TRUE(isTransparent(picture)) << "view " << i;
    }
    EXPECT_GT(painted, 200);
}

TEST_F(OverlayPixelsTest, a_step_of_the_pulse_changes_no_pixel_outside_its_damage)
{
    RandomHighlightViews random;
    int changed = 0;
    for (int i = 0; i < 300; ++i) {
        HighlightView view = random.make();
        const Size size = sizeOf(view);
        const double scale = random.pick({1, 1.5, 2});
        const double before = view.pulseProgress;
        const double after = random.pick({0, 0.02, 0.3, 0.52, 0.95});
        const Picture first = draw(view, size, scale);
        view.pulseProgress = after;
        Picture difference = draw(view, size, scale);
        for (std::size_t j = 0; j < difference.pixels.size(); ++j)
            difference.pixels[j] ^= first.pixels[j];
        changed += isTransparent(difference) ? 0 : 1;
        wipe(difference, view.pulseDamage(before, after), size.height, scale);
        ASSERT_TRUE(isTransparent(difference)) << "view " << i;
    }
    EXPECT_GT(changed, 100);
}

TEST_F(OverlayPixelsTest, dimming_tints_the_screen_and_leaves_the_hole_clear)
{
    DimView view;
    view.settings.dimEnabled = true;
    view.settings.dimColor = {0, 0, 0, 0.1};
    view.settings.dimOpacity = 0.4;
    view.settings.cornerRadius = 11;
    view.holeRect = Rect{50, 60, 100, 80}; // rows 60...139 of 200 from the top
    Picture picture = draw(view, {200, 200});
    const int dim = 102; // 0.4 of 255
    EXPECT_EQ(alphaAt(picture, 0, 0), dim);
    EXPECT_EQ(alphaAt(picture, 49, 100), dim);
    EXPECT_EQ(alphaAt(picture, 50, 100), 0);
    EXPECT_EQ(alphaAt(picture, 149, 100), 0);
    EXPECT_EQ(alphaAt(picture, 150, 100), dim);
    EXPECT_EQ(alphaAt(picture, 100, 60), 0);
    EXPECT_EQ(alphaAt(picture, 100, 59), dim);
    EXPECT_EQ(alphaAt(picture, 50, 60), dim); // outside the round corner
    EXPECT_EQ(alphaAt(picture, 54, 64), 0);
    wipe(picture, view.paintedArea({0, 0, 200, 200}), 200, 1);
    EXPECT_TRUE(isTransparent(picture));
}

TEST_F(OverlayPixelsTest, a_hole_that_moves_changes_no_pixel_outside_its_damage)
{
    DimView view;
    view.settings.dimEnabled = true;
    for (const double scale : {1.0, 1.5, 2.0}) {
        const Rect before{50.3, 60.7, 80, 70};
        for (const Rect& after : {Rect{52.9, 60.2, 80, 70}, Rect{50.3, 60.7, 81.5, 70}, Rect{170, -20, 80, 70}}) {
            view.holeRect = before;
            const Picture first = draw(view, {200, 200}, scale);
            view.holeRect = after;
            Picture difference = draw(view, {200, 200}, scale);
            for (std::size_t i = 0; i < difference.pixels.size(); ++i)
                difference.pixels[i] ^= first.pixels[i];
            EXPECT_FALSE(isTransparent(difference));
            const auto damage = DimView::holeDamage(before, after);
            wipe(difference, {damage.begin(), damage.end()}, 200, scale);
            EXPECT_TRUE(isTransparent(difference));
        }
    }
}

TEST_F(OverlayPixelsTest, a_hole_partly_off_the_screen_is_cut_as_far_as_it_reaches)
{
    DimView view;
    view.settings.dimEnabled = true;
    view.settings.cornerRadius = 0;
    view.holeRect = Rect{150, -50, 100, 100};
    const Picture picture = draw(view, {200, 200});
    EXPECT_EQ(alphaAt(picture, 199, 199), 0);
    EXPECT_EQ(alphaAt(picture, 150, 150), 0);
    EXPECT_GT(alphaAt(picture, 149, 150), 0);
    EXPECT_GT(alphaAt(picture, 199, 149), 0);
}

TEST_F(OverlayPixelsTest, overlapping_dimmed_windows_are_darker_and_a_clear_one_in_front_leaves_nothing)
{
    AppDimView view;
    view.settings.dimEnabled = true;
    view.settings.dimScope = DimScope::selectedApps;
    view.settings.dimOpacity = 0.4;
    view.settings.cornerRadius = 8;
    view.windows = {{{10, 10, 100, 100}, true}, {{60, 10, 100, 100}, true}, {{90, 60, 100, 100}, false}};
    Picture picture = draw(view, {200, 200});
    const int bottom = 200 - 30; // the row at 30 points of height
    EXPECT_EQ(alphaAt(picture, 30, bottom), 102);
    EXPECT_NEAR(alphaAt(picture, 80, bottom), 163, 1); // 1 - 0.6 * 0.6
    EXPECT_EQ(alphaAt(picture, 130, bottom), 102);
    EXPECT_EQ(alphaAt(picture, 105, 200 - 90), 0); // both dimmed ones, and the clear one in front
    EXPECT_EQ(alphaAt(picture, 130, 200 - 90), 0);
    EXPECT_EQ(alphaAt(picture, 5, bottom), 0);
    wipe(picture, view.paintedArea({0, 0, 200, 200}), 200, 1);
    EXPECT_TRUE(isTransparent(picture));
}

TEST_F(OverlayPixelsTest, a_dimmed_window_in_front_paints_over_a_clear_one)
{
    AppDimView view;
    view.settings.dimEnabled = true;
    view.settings.dimScope = DimScope::selectedApps;
    view.settings.dimOpacity = 0.4;
    view.windows = {{{10, 10, 100, 100}, false}, {{60, 10, 100, 100}, true}};
    const Picture picture = draw(view, {200, 200});
    EXPECT_EQ(alphaAt(picture, 80, 150), 102);
    EXPECT_EQ(alphaAt(picture, 30, 150), 0);
}

} // namespace
} // namespace haloric
