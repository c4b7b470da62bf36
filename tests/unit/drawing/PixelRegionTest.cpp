#include "drawing/PixelRegion.h"

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

TEST(PixelRegion, it_holds_each_pixel_of_overlapping_rectangles_once)
{
    const std::vector<PixelRect> rects{{0, 0, 4, 4}, {2, 2, 4, 4}};
    const PixelRegion region(rects);
    const Pixels pixels = pixelsOf(region.rects());
    EXPECT_EQ(pixels.size(), 28U);
    EXPECT_EQ(unique(pixels).size(), 28U);
}

TEST(PixelRegion, overlapping_rectangles_cover_what_they_cover_within_the_bounds)
{
    constexpr PixelRect kBounds{0, 0, 10, 10};
    std::mt19937 random(3);
    PixelRegion region;
    for (int round = 0; round < 300; ++round) {
        const auto rects = randomRects(random, 8);
        region.clear();
        for (const PixelRect& rect : rects)
            region.add(rect);
        auto expected = unique(pixelsOf(rects));
        EXPECT_EQ(pixelsOf(region.rects()), Pixels(expected.begin(), expected.end())) << "round " << round;
        std::erase_if(expected, [&](const auto& pixel) {
            return !kBounds.contains({pixel.first, pixel.second, 1, 1});
        });
        region.limitTo(kBounds);
        EXPECT_EQ(pixelsOf(region.rects()), Pixels(expected.begin(), expected.end())) << "round " << round;
    }
}

TEST(PixelRegion, a_limit_drops_what_lies_outside)
{
    PixelRegion region(PixelRect{40, 40, 5, 5});
    region.limitTo({0, 0, 30, 30});
    EXPECT_TRUE(region.empty());
}

TEST(PixelRegion, set_operations_agree_with_sets_of_pixels)
{
    std::mt19937 random(7);
    for (int round = 0; round < 300; ++round) {
        const auto rectsA = randomRects(random, 4);
        const auto rectsB = randomRects(random, 4);
        const PixelRegion a(rectsA);
        const PixelRegion b(rectsB);
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

TEST(PixelRegion, bands_cover_the_region_once_and_are_no_larger_than_allowed)
{
    std::mt19937 random(11);
    for (const int most : {1, 3, 7, 1000}) {
        const PixelRegion region(randomRects(random, 5));
        const auto bands = region.bands(most);
        for (const PixelRect& band : bands) {
            EXPECT_FALSE(band.empty());
            EXPECT_LE(band.width * band.height, most);
        }
        EXPECT_EQ(pixelsOf(bands), pixelsOf(region.rects()));
    }
}

TEST(PixelRegion, a_large_rectangle_is_cut_into_whole_rows)
{
    const PixelRegion region(PixelRect{10, 20, 100, 50});
    EXPECT_THAT(region.bands(2000), testing::ElementsAre(PixelRect{10, 20, 100, 20}, PixelRect{10, 40, 100, 20},
                                                         PixelRect{10, 60, 100, 10}));
}

TEST(PixelRegion, a_rectangle_is_contained_if_all_its_pixels_are)
{
    const std::vector<PixelRect> rects{{0, 0, 4, 4}, {4, 0, 4, 4}};
    const PixelRegion region(rects);
    EXPECT_TRUE(region.contains({1, 1, 6, 2}));
    EXPECT_FALSE(region.contains({1, 1, 8, 2}));
}

TEST(PixelRegion, empty_rectangles_add_nothing)
{
    PixelRegion region(PixelRect{5, 5, 0, 9});
    EXPECT_TRUE(region.empty());
    region.add({0, 0, 1, 1});
    region.add({3, 3, -4, 8});
    EXPECT_THAT(region.rects(), testing::ElementsAre(PixelRect{0, 0, 1, 1}));
    EXPECT_THAT(region.minus(PixelRegion(PixelRect{0, 0, 5, 0})).rects(), testing::ElementsAre(PixelRect{0, 0, 1, 1}));
    region.clear();
    EXPECT_TRUE(region.empty());
}

} // namespace
} // namespace haloric
