// The highlight's lines: the border and the ring of the pulse.
#include "unit/overlay/HighlightViewFixture.h"

namespace haloric {
namespace {

using HighlightViewLinesTest = HighlightViewFixture;

TEST_F(HighlightViewLinesTest, the_border_lies_inside_the_window)
{
    view.settings.borderEnabled = true;
    view.settings.borderWidth = 3;
    view.settings.cornerRadius = 11;
    EXPECT_EQ(draw(), Calls{(Recorded::Stroke{Path::roundedRect({41.5, 41.5, 297, 197}, 9.5), kAccentColor, 3})});
}

TEST_F(HighlightViewLinesTest, a_corner_radius_up_to_half_the_border_gives_square_corners)
{
    view.settings.borderEnabled = true;
    view.settings.borderWidth = 10;
    for (const double radius : {5.0, 4.0, 0.0, -100.0}) {
        view.settings.cornerRadius = radius;
        EXPECT_EQ(draw(), Calls{(Recorded::Stroke{Path::roundedRect({45, 45, 290, 190}, 0), kAccentColor, 10})});
    }
}

TEST_F(HighlightViewLinesTest, a_border_without_width_is_not_drawn)
{
    view.settings.borderEnabled = true;
    for (const double width : {0.0, -1.0}) {
        view.settings.borderWidth = width;
        EXPECT_TRUE(draw().empty());
    }
}

TEST_F(HighlightViewLinesTest, a_border_wider_than_the_window_fills_it)
{
    view.settings.borderEnabled = true;
    view.settings.cornerRadius = 11;
    for (const double width : {200.0, 250.0, 1e308}) {
        view.settings.borderWidth = width;
        EXPECT_EQ(draw(), Calls{(Recorded::Fill{Path::roundedRect(kWindow, 0), kAccentColor, FillRule::nonZero})});
    }
    view.settings.borderWidth = 200;
    view.settings.cornerRadius = 101;
    EXPECT_EQ(draw(), Calls{(Recorded::Fill{Path::roundedRect(kWindow, 101), kAccentColor, FillRule::nonZero})});
}

TEST_F(HighlightViewLinesTest, halfway_the_pulse_ring_is_19_5_points_outside_and_half_as_strong)
{
    view.settings.pulseEnabled = true;
    view.settings.borderEnabled = true;
    view.settings.borderWidth = 0;
    view.settings.cornerRadius = 11;
    view.pulseProgress = 0.5;
    EXPECT_EQ(draw(), Calls{(Recorded::Stroke{Path::roundedRect({20.5, 20.5, 339, 239}, 30.5),
                                              kAccentColor.withAlpha(0.45), 3})});
}

TEST_F(HighlightViewLinesTest, the_pulse_slows_down_on_its_way)
{
    view.settings.pulseEnabled = true;
    view.settings.cornerRadius = 0;
    view.pulseProgress = 0.75;
    const auto calls = draw();
    const auto& ring = std::get<Recorded::Stroke>(calls.at(0));
    const double grow = (1 - 0.25 * 0.25) * 26;
    EXPECT_EQ(ring.path, Path::roundedRect(kWindow.insetBy(-grow), grow));
    EXPECT_DOUBLE_EQ(ring.color.alpha, 0.225);
}

TEST_F(HighlightViewLinesTest, at_both_ends_there_is_no_pulse_ring)
{
    view.settings.pulseEnabled = true;
    for (const double progress : {0.0, 1.0, -0.5, 1.5}) {
        view.pulseProgress = progress;
        EXPECT_TRUE(draw().empty());
    }
    view.settings.pulseEnabled = false;
    view.pulseProgress = 0.5;
    EXPECT_TRUE(draw().empty());
}

TEST_F(HighlightViewLinesTest, the_pulse_takes_the_border_colour_or_without_border_the_glow_colour)
{
    view.settings.pulseEnabled = true;
    view.settings.borderColor = {false, kCustom};
    view.settings.glowColor = {true, kCustom};
    view.settings.borderWidth = 0;
    view.pulseProgress = 0.5;
    const auto ringColor = [this] { return std::get<Recorded::Stroke>(draw().at(0)).color; };
    EXPECT_EQ(ringColor(), kAccentColor.withAlpha(0.45)); // the glow's, although the glow is off
    view.settings.borderEnabled = true;
    EXPECT_EQ(ringColor(), kCustomColor.withAlpha(0.45));
}

} // namespace
} // namespace haloric
