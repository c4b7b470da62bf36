#include "hosts/x11/overlay/X11OverlaySurface.h"

#include <limits>

namespace haloric {
namespace {

struct NoView final : ContentView {
    bool isOpaque() const override { return false; }
    bool isFlipped() const override { return false; }
    void draw(Canvas&, const Rect&) override {}
    std::vector<Rect> paintedArea(const Rect&) const override { return {}; }
};

struct X11ViewContentTest : testing::Test {
    NoView view;
    X11ViewContent at(double scale, PixelRect pixels) { return {view, {100, 50}, scale, pixels}; }
};

TEST_F(X11ViewContentTest, points_count_from_the_bottom_and_pixels_from_the_top)
{
    EXPECT_EQ(at(1, {0, 0, 100, 50}).toPixels({10, 0, 20, 5}), (PixelRect{10, 45, 20, 5}));
    EXPECT_EQ(at(2, {0, 0, 200, 100}).toPixels({10, 40, 20, 10}), (PixelRect{20, 0, 40, 20}));
}

TEST_F(X11ViewContentTest, every_pixel_that_is_touched_counts)
{
    EXPECT_EQ(at(1, {0, 0, 100, 50}).toPixels({10.2, 10.2, 1, 1}), (PixelRect{10, 38, 2, 2}));
    EXPECT_EQ(at(1.25, {0, 0, 125, 63}).toPixels({1, 48, 1, 1}), (PixelRect{1, 1, 2, 2}));
}

TEST_F(X11ViewContentTest, noise_of_sums_takes_in_no_further_pixel)
{
    EXPECT_EQ(at(1, {0, 0, 100, 50}).toPixels({10 - 1e-12, 10 - 1e-12, 5 + 2e-12, 5 + 2e-12}),
              (PixelRect{10, 35, 5, 5}));
}

TEST_F(X11ViewContentTest, the_offset_shifts_the_view_in_its_window)
{
    X11ViewContent content = at(1, {0, 0, 100, 50});
    content.place.offset = {-0.5, 0.25};
    EXPECT_EQ(content.toPixels({10, 10, 5, 5}), (PixelRect{9, 35, 6, 6}));
    EXPECT_EQ(content.toPixels({10.5, 10.25, 5, 5}), (PixelRect{10, 35, 5, 5}));
}

TEST_F(X11ViewContentTest, rows_and_columns_that_the_window_lacks_do_not_count)
{
    X11ViewContent content = at(1, {0, 0, 60, 40});
    content.place = {30, 10, {}};
    EXPECT_EQ(content.toPixels({0, 0, 100, 50}), (PixelRect{0, 0, 60, 40}));
    EXPECT_EQ(content.toPixels({40, 20, 10, 5}), (PixelRect{10, 15, 10, 5}));
    EXPECT_EQ(content.toPixels({0, 0, 30, 50}).width, 0);
}

TEST_F(X11ViewContentTest, what_lies_outside_is_cut_off)
{
    EXPECT_EQ(at(1, {0, 0, 100, 50}).toPixels({-10, -10, 1000, 1000}), (PixelRect{0, 0, 100, 50}));
    EXPECT_TRUE(at(1, {0, 0, 100, 50}).toPixels({200, 10, 10, 10}).empty());
}

TEST_F(X11ViewContentTest, numbers_that_make_no_sense_do_no_harm)
{
    constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
    constexpr double kHuge = 1e300;
    EXPECT_TRUE(at(1, {0, 0, 100, 50}).toPixels({kNan, kNan, kNan, kNan}).empty());
    EXPECT_EQ(at(1, {0, 0, 100, 50}).toPixels({-kHuge, -kHuge, 2 * kHuge, 2 * kHuge}), (PixelRect{0, 0, 100, 50}));
}

} // namespace
} // namespace haloric
