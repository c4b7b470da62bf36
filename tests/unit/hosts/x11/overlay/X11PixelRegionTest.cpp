#include "hosts/x11/overlay/X11PixelRegion.h"

#include <random>
#include <set>

namespace haloric {
namespace {

using Pixels = std::multiset<std::pair<int, int>>;

Pixels pixelsOf(std::span<const PixelRect> rects)
{
    Pixels pixels;
    for (const PixelRect& rect : rects) {
        for (int y = rect.y; y < rect.maxY(); ++y) {
            for (int x = rect.x; x < rect.maxX(); ++x)
                pixels.emplace(x, y);
        }
    }
    return pixels;
}

std::set<std::pair<int, int>> unique(const Pixels& pixels) { return {pixels.begin(), pixels.end()}; }

std::vector<PixelRect> randomRects(std::mt19937& random, int count)
{
    std::vector<PixelRect> rects;
    std::uniform_int_distribution<int> place(-3, 12);
    std::uniform_int_distribution<int> length(0, 8);
    for (int index = 0; index < count; ++index)
        rects.push_back({place(random), place(random), length(random), length(random)});
    return rects;
}

TEST(X11PixelRegion, it_holds_each_pixel_of_overlapping_rectangles_once)
{
    const std::vector<PixelRect> rects{{0, 0, 4, 4}, {2, 2, 4, 4}};
    const X11PixelRegion region(rects);
    const Pixels pixels = pixelsOf(region.rects());
    EXPECT_EQ(pixels.size(), 28U);
    EXPECT_EQ(unique(pixels).size(), 28U);
}

TEST(X11PixelRegion, set_operations_agree_with_sets_of_pixels)
{
    std::mt19937 random(7);
    for (int round = 0; round < 300; ++round) {
        const auto rectsA = randomRects(random, 4);
        const auto rectsB = randomRects(random, 4);
        const X11PixelRegion a(rectsA);
        const X11PixelRegion b(rectsB);
        const auto setA = unique(pixelsOf(rectsA));
        const auto setB = unique(pixelsOf(rectsB));
        std::set<std::pair<int, int>> expectedMinus;
        std::set<std::pair<int, int>> expectedBoth;
        std::ranges::set_difference(setA, setB, std::inserter(expectedMinus, expectedMinus.end()));
        std::ranges::set_intersection(setA, setB, std::inserter(expectedBoth, expectedBoth.end()));
        const auto minus = a.minus(b);
        const auto both = a.intersectedWith(b);
        EXPECT_EQ(unique(pixelsOf(minus.rects())), expectedMinus);
        EXPECT_EQ(pixelsOf(minus.rects()).size(), expectedMinus.size());
        EXPECT_EQ(unique(pixelsOf(both.rects())), expectedBoth);
        EXPECT_EQ(pixelsOf(both.rects()).size(), expectedBoth.size());
    }
}

TEST(X11PixelRegion, bands_cover_the_region_once_and_are_no_larger_than_allowed)
{
    std::mt19937 random(11);
    for (const int most : {1, 3, 7, 1000}) {
        const X11PixelRegion region(randomRects(random, 5));
        const auto bands = region.bands(most);
        for (const PixelRect& band : bands) {
            EXPECT_FALSE(band.empty());
            EXPECT_LE(band.width * band.height, most);
        }
        EXPECT_EQ(pixelsOf(bands), pixelsOf(region.rects()));
    }
}

TEST(X11PixelRegion, a_large_rectangle_is_cut_into_whole_rows)
{
    const X11PixelRegion region(PixelRect{10, 20, 100, 50});
    EXPECT_THAT(region.bands(2000), testing::ElementsAre(PixelRect{10, 20, 100, 20}, PixelRect{10, 40, 100, 20},
                                                         PixelRect{10, 60, 100, 10}));
}

TEST(X11PixelRegion, it_knows_whether_it_contains_a_rectangle)
{
    const std::vector<PixelRect> rects{{0, 0, 4, 4}, {4, 0, 4, 4}};
    const X11PixelRegion region(rects);
    EXPECT_TRUE(region.contains({1, 1, 6, 2}));
    EXPECT_FALSE(region.contains({1, 1, 8, 2}));
}

TEST(X11PixelRegion, empty_rectangles_add_nothing)
{
    X11PixelRegion region(PixelRect{5, 5, 0, 9});
    EXPECT_TRUE(region.empty());
    region.add(PixelRect{0, 0, 1, 1});
    region.subtract(PixelRect{0, 0, 5, 0});
    EXPECT_EQ(region.rects().size(), 1U);
    region.clear();
    EXPECT_TRUE(region.empty());
}

} // namespace
} // namespace haloric
