#include "settings/SliderScale.h"

#include <limits>

namespace haloric {
namespace {

constexpr SliderScale kTwentieths{.stepsPerUnit = 20, .first = 2, .last = 16}; // 0.1...0.8 by 0.05

TEST(SliderScaleTest, its_bounds_and_its_step_are_the_doubles_nearest_to_their_decimals)
{
    EXPECT_EQ(kTwentieths.minimum(), 0.1);
    EXPECT_EQ(kTwentieths.maximum(), 0.8);
    EXPECT_EQ(kTwentieths.step(), 0.05);
}

TEST(SliderScaleTest, rounding_errors_of_steps_counted_from_the_minimum_are_removed)
{
    const double counted = kTwentieths.minimum() + 4 * kTwentieths.step();
    ASSERT_NE(counted, 0.3);
    EXPECT_EQ(kTwentieths.nearest(counted), 0.3);
}

TEST(SliderScaleTest, rounding_errors_of_steps_added_one_by_one_are_removed)
{
    double sum = kTwentieths.minimum();
    for (int step = 0; step < 14; ++step)
        sum += kTwentieths.step();
    ASSERT_NE(sum, 0.8);
    EXPECT_EQ(kTwentieths.nearest(sum), 0.8);
}

TEST(SliderScaleTest, a_value_between_steps_is_moved_to_the_nearer_one)
{
    EXPECT_EQ(kTwentieths.nearest(0.324), 0.3);
    EXPECT_EQ(kTwentieths.nearest(0.326), 0.35);
}

TEST(SliderScaleTest, a_value_outside_is_moved_to_the_nearer_end)
{
    using Limits = std::numeric_limits<double>;
    for (const double low : {0.0999, 0.0, -0.0, -7.0, Limits::lowest()})
        EXPECT_EQ(kTwentieths.nearest(low), 0.1) << low;
    for (const double high : {0.8001, 80.0, 1e19, Limits::max()})
        EXPECT_EQ(kTwentieths.nearest(high), 0.8) << high;
}

TEST(SliderScaleTest, a_number_that_is_not_finite_is_not_on_the_scale)
{
    using Limits = std::numeric_limits<double>;
    for (const double strange : {Limits::quiet_NaN(), Limits::infinity(), -Limits::infinity()})
        EXPECT_EQ(kTwentieths.nearest(strange), std::nullopt) << strange;
}

} // namespace
} // namespace haloric
