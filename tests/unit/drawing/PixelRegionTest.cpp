#include "drawing/PixelRegion.h"

#include <random>

namespace haloric {
namespace {

constexpr PixelRect kBounds{0, 0, 30, 30};

int timesCovered(std::span<const PixelRect> rects, int x, int y)
{
    return static_cast<int>(std::count_if(rects.begin(), rects.end(), [&](const PixelRect& rect) {
        return rect.contains({x, y, 1, 1});
    }));
}

TEST(PixelRegion, overlapping_rectangles_come_apart_and_cover_the_same)
{
    std::mt19937 random(3);
    const auto upTo = [&](unsigned limit) { return static_cast<int>(random() % (limit + 1)); };
    std::vector<PixelRect> apart;
    for (int round = 0; round < 300; ++round) {
        std::vector<PixelRect> rects;
        for (int i = 0; i < 8; ++i)
            rects.push_back({upTo(30) - 4, upTo(30) - 4, upTo(20), upTo(20)});
        setApart(apart, rects, kBounds);
        for (int y = -5; y < 40; ++y)
            for (int x = -5; x < 40; ++x) {
                const bool wanted = kBounds.contains({x, y, 1, 1}) && timesCovered(rects, x, y) > 0;
                ASSERT_EQ(timesCovered(apart, x, y), wanted ? 1 : 0) << "round " << round << " at " << x << ", " << y;
            }
    }
}

TEST(PixelRegion, what_lies_outside_or_is_empty_is_dropped)
{
    std::vector<PixelRect> apart{{1, 2, 3, 4}};
    setApart(apart, std::vector<PixelRect>{{40, 40, 5, 5}, {3, 3, 0, 8}, {3, 3, -4, 8}}, kBounds);
    EXPECT_TRUE(apart.empty());
}

} // namespace
} // namespace haloric
