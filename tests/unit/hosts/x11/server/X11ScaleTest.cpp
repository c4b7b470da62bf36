#include "hosts/x11/server/X11Scale.h"

#include <limits>

namespace haloric {
namespace {

TEST(X11Scale, a_text_resolution_is_rounded_down_to_quarters)
{
    EXPECT_EQ(X11Scale::fromDotsPerInch(96), 1);
    EXPECT_EQ(X11Scale::fromDotsPerInch(110), 1);
    EXPECT_EQ(X11Scale::fromDotsPerInch(120), 1.25);
    EXPECT_EQ(X11Scale::fromDotsPerInch(144), 1.5);
    EXPECT_EQ(X11Scale::fromDotsPerInch(192), 2);
    EXPECT_EQ(X11Scale::fromDotsPerInch(215), 2);
    EXPECT_EQ(X11Scale::fromDotsPerInch(288), 3);
}

TEST(X11Scale, a_resolution_that_makes_no_sense_gives_a_usable_scale)
{
    EXPECT_EQ(X11Scale::fromDotsPerInch(0), 1);
    EXPECT_EQ(X11Scale::fromDotsPerInch(-192), 1);
    EXPECT_EQ(X11Scale::fromDotsPerInch(72), 1);
    EXPECT_EQ(X11Scale::fromDotsPerInch(1e6), 4);
    EXPECT_EQ(X11Scale::fromDotsPerInch(std::numeric_limits<double>::quiet_NaN()), 1);
    EXPECT_EQ(X11Scale::fromDotsPerInch(std::numeric_limits<double>::infinity()), 1);
}

TEST(X11Scale, the_resolution_is_found_among_other_resources)
{
    EXPECT_EQ(X11Scale::fromResources("Xcursor.size:\t24\nXft.dpi:\t192\nXft.hinting:\t1\n"), 2);
    EXPECT_EQ(X11Scale::fromResources("Xft.dpi: 144"), 1.5);
    EXPECT_EQ(X11Scale::fromResources("  Xft.dpi:144.0\n"), 1.5);
}

TEST(X11Scale, without_a_readable_resolution_the_scale_is_one)
{
    EXPECT_EQ(X11Scale::fromResources(""), 1);
    EXPECT_EQ(X11Scale::fromResources("\n\n"), 1);
    EXPECT_EQ(X11Scale::fromResources("Xft.dpi:"), 1);
    EXPECT_EQ(X11Scale::fromResources("Xft.dpi: many\n"), 1);
    EXPECT_EQ(X11Scale::fromResources("NotXft.dpi: 192\nXft.dpiScale: 192\n"), 1);
}

TEST(X11Scale, what_is_set_is_in_force)
{
    X11Scale scale;
    EXPECT_EQ(scale.current(), X11Space{});
    scale.set({2, {10, 20, 300, 200}});
    EXPECT_EQ(scale.current(), (X11Space{2, {10, 20, 300, 200}}));
}

} // namespace
} // namespace haloric
