#include "foundation/ScreenChoice.h"

#include <vector>

namespace haloric {
namespace {

struct TestScreen {
    Rect frame;
};

const std::vector<TestScreen> kScreens{{{0, 0, 100, 100}}, {{100, 0, 200, 100}}, {{0, 100, 100, 100}}};

std::ptrdiff_t chosen(const Rect& rect) { return screenHoldingMost(rect, kScreens) - kScreens.data(); }

TEST(ScreenChoice, the_screen_with_the_largest_part_of_the_rectangle_is_chosen)
{
    EXPECT_EQ(chosen({10, 10, 20, 20}), 0);
    EXPECT_EQ(chosen({80, 10, 50, 20}), 1);
    EXPECT_EQ(chosen({10, 90, 20, 30}), 2);
}

TEST(ScreenChoice, of_equal_parts_the_first_screen_has_the_preference)
{
    EXPECT_EQ(chosen({90, 10, 20, 20}), 0);
    EXPECT_EQ(chosen({90, 80, 20, 40}), 0);
}

TEST(ScreenChoice, a_rectangle_outside_all_screens_chooses_the_first)
{
    EXPECT_EQ(chosen({1000, 1000, 20, 20}), 0);
    EXPECT_EQ(chosen({150, 50, 0, 0}), 0) << "an empty rectangle has no part on any screen";
}

TEST(ScreenChoice, without_screens_there_is_no_choice)
{
    EXPECT_EQ(screenHoldingMost({0, 0, 10, 10}, std::vector<TestScreen>()), nullptr);
}

} // namespace
} // namespace haloric
