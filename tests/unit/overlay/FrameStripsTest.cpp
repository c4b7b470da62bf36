#include "overlay/FrameStrips.h"

namespace haloric {
namespace {

using testing::ElementsAre;
using testing::UnorderedElementsAre;

constexpr Rect kOuter{0, 0, 100, 80};

TEST(FrameStripsTest, surround_the_interior_without_overlap)
{
    EXPECT_THAT(
        stripsAround(kOuter, {10, 20, 60, 30}),
        UnorderedElementsAre(Rect{0, 50, 100, 30}, Rect{0, 0, 100, 20}, Rect{0, 20, 10, 30}, Rect{70, 20, 30, 30}));
}

TEST(FrameStripsTest, leave_out_what_lies_outside)
{
    EXPECT_THAT(stripsAround(kOuter, {-50, -50, 70, 80}),
                UnorderedElementsAre(Rect{0, 30, 100, 50}, Rect{20, 0, 80, 30}));
    EXPECT_TRUE(stripsAround(kOuter, {-1, -1, 102, 82}).empty());
}

TEST(FrameStripsTest, are_the_whole_without_an_interior)
{
    EXPECT_THAT(stripsAround(kOuter, {10, 10, 0, 20}), ElementsAre(kOuter));
    EXPECT_THAT(stripsAround(kOuter, {10, 10, -5, 20}), ElementsAre(kOuter));
    EXPECT_THAT(stripsAround(kOuter, {100, 10, 5, 20}), ElementsAre(kOuter));
}

} // namespace
} // namespace haloric
