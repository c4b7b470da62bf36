#include "drawing/GlowKernel.h"

#include <cmath>
#include <limits>

namespace haloric {
namespace {

double sumOf(const GlowKernel& kernel)
{
    double sum = 0;
    for (std::size_t i = 0; i < kernel.taps().size(); ++i)
        sum += static_cast<double>(kernel.taps()[i]) * (i == 0 ? 1 : 2);
    return sum;
}

TEST(GlowKernel, is_cut_at_the_blur_radius_and_adds_up_to_one)
{
    for (const double blur : {0.3, 1.0, 4.0, 18.0, 22.5, 120.0}) {
        const GlowKernel kernel(blur);
        EXPECT_EQ(kernel.margin(), static_cast<int>(blur));
        EXPECT_EQ(GlowKernel::marginOf(blur), kernel.margin());
        EXPECT_NEAR(sumOf(kernel), 1, 1e-5);
    }
}

TEST(GlowKernel, falls_off_as_a_gaussian_of_half_the_blur_radius)
{
    const GlowKernel kernel(18);
    const double atNone = static_cast<double>(kernel.taps()[0]);
    EXPECT_NEAR(static_cast<double>(kernel.taps()[9]) / atNone, std::exp(-0.5), 1e-5);
    EXPECT_NEAR(static_cast<double>(kernel.taps()[18]) / atNone, std::exp(-2.0), 1e-5);
}

TEST(GlowKernel, the_cumulative_function_rises_from_zero_to_one_around_the_edge)
{
    const GlowKernel kernel(18);
    EXPECT_EQ(kernel.cumulative(-18.5), 0);
    EXPECT_EQ(kernel.cumulative(18.5), 1);
    EXPECT_NEAR(kernel.cumulative(0), 0.5, 1e-6);
    for (double distance = -20; distance < 20; distance += 0.1) {
        EXPECT_LE(kernel.cumulative(distance), kernel.cumulative(distance + 0.1));
        EXPECT_NEAR(kernel.cumulative(distance) + kernel.cumulative(-distance), 1, 1e-5);
    }
}

TEST(GlowKernel, the_cumulative_function_is_the_blur_of_a_smoothed_edge)
{
    const GlowKernel kernel(4);
    const double edge = 0.3; // everything from here on; pixels are centred on whole numbers
    for (int pixel = -7; pixel <= 7; ++pixel) {
        double blurred = 0;
        for (int tap = -4; tap <= 4; ++tap)
            blurred += static_cast<double>(kernel.taps()[static_cast<std::size_t>(std::abs(tap))]) *
                       std::clamp(pixel + tap + 0.5 - edge, 0.0, 1.0);
        EXPECT_NEAR(static_cast<double>(kernel.cumulative(pixel - edge)), blurred, 1e-6);
    }
}

TEST(GlowKernel, strange_radii_are_cut)
{
    EXPECT_EQ(GlowKernel(0).margin(), 0);
    EXPECT_EQ(GlowKernel(-5).margin(), 0);
    EXPECT_EQ(GlowKernel(std::numeric_limits<double>::quiet_NaN()).margin(), 0);
    EXPECT_EQ(GlowKernel(std::numeric_limits<double>::infinity()).margin(), 512);
}

} // namespace
} // namespace haloric
