#include "settings/ValueText.h"

#include <cmath>
#include <limits>

namespace haloric {
namespace {

using Limits = std::numeric_limits<double>;

TEST(ValueTextTest, whole_points_truncate_toward_zero)
{
    EXPECT_EQ(text(ValueText::wholePoints, 11), "11 pt");
    EXPECT_EQ(text(ValueText::wholePoints, 11.999), "11 pt");
    EXPECT_EQ(text(ValueText::wholePoints, -11.999), "-11 pt");
    EXPECT_EQ(text(ValueText::wholePoints, 0.9), "0 pt");
    EXPECT_EQ(text(ValueText::wholePoints, -0.9), "0 pt") << "zero has no sign";
    EXPECT_EQ(text(ValueText::wholePoints, 123456789), "123456789 pt");
}

TEST(ValueTextTest, points_with_a_tenth_are_rounded)
{
    EXPECT_EQ(text(ValueText::pointsTenths, 3), "3.0 pt");
    EXPECT_EQ(text(ValueText::pointsTenths, 2.5), "2.5 pt");
    EXPECT_EQ(text(ValueText::pointsTenths, 2.46), "2.5 pt");
    EXPECT_EQ(text(ValueText::pointsTenths, 2.25), "2.2 pt") << "a tie is rounded to the even digit";
    EXPECT_EQ(text(ValueText::pointsTenths, -1.5), "-1.5 pt");
    EXPECT_EQ(text(ValueText::pointsTenths, 123456.78), "123456.8 pt");
}

TEST(ValueTextTest, percentages_truncate_toward_zero_after_the_multiplication)
{
    EXPECT_EQ(text(ValueText::percent, 0.8), "80%");
    ASSERT_LT(0.29 * 100, 29);
    EXPECT_EQ(text(ValueText::percent, 0.29), "28%");
    EXPECT_EQ(text(ValueText::percent, 0.999), "99%");
    EXPECT_EQ(text(ValueText::percent, -0.29), "-28%");
    EXPECT_EQ(text(ValueText::percent, -0.009), "0%");
}

TEST(ValueTextTest, every_twentieth_has_its_percentage)
{
    for (int percent = 0; percent <= 100; percent += 5)
        EXPECT_EQ(text(ValueText::percent, percent / 100.0), std::to_string(percent) + "%");
}

TEST(ValueTextTest, large_numbers_are_written_out_as_well)
{
    EXPECT_EQ(text(ValueText::wholePoints, 999999999999999.5), "999999999999999 pt");
    EXPECT_EQ(text(ValueText::wholePoints, 1234567890123456), "1234567890123456 pt");
    EXPECT_EQ(text(ValueText::wholePoints, -1e19), "-10000000000000000000 pt") << "beyond every integer of the machine";
    EXPECT_EQ(text(ValueText::pointsTenths, 1234567890123456), "1234567890123456.0 pt");
    EXPECT_EQ(text(ValueText::pointsTenths, -1e19), "-10000000000000000000.0 pt");
    EXPECT_EQ(text(ValueText::percent, 1e15), "100000000000000000%");
}

TEST(ValueTextTest, the_largest_numbers_have_all_their_digits)
{
    const std::string largest = text(ValueText::wholePoints, Limits::max());
    EXPECT_TRUE(largest.starts_with("179769313486231570")) << largest;
    EXPECT_EQ(largest.size(), 309 + std::string(" pt").size());
    EXPECT_EQ(text(ValueText::pointsTenths, -Limits::max()), "-" + largest.substr(0, 309) + ".0 pt");
}

TEST(ValueTextTest, numbers_that_are_not_finite_have_a_text)
{
    for (const ValueText form : {ValueText::wholePoints, ValueText::pointsTenths, ValueText::percent}) {
        EXPECT_TRUE(text(form, Limits::infinity()).starts_with("inf"));
        EXPECT_TRUE(text(form, -Limits::infinity()).starts_with("-inf"));
        EXPECT_TRUE(text(form, std::abs(Limits::quiet_NaN())).starts_with("nan"));
    }
    EXPECT_EQ(text(ValueText::percent, Limits::max()), "inf%");
}

} // namespace
} // namespace haloric
