// The highlight as a whole, its glow and its tint.
#include "unit/overlay/HighlightViewFixture.h"

#include <limits>

namespace haloric {
namespace {

using HighlightViewTest = HighlightViewFixture;

TEST_F(HighlightViewTest, starts_with_the_default_settings_and_nothing_to_draw)
{
    const HighlightView fresh;
    EXPECT_EQ(fresh.settings, Settings());
    EXPECT_EQ(fresh.windowRect, Rect());
    EXPECT_FALSE(fresh.tintHeight.has_value());
    EXPECT_EQ(fresh.pulseProgress, 0);
    EXPECT_FALSE(fresh.isOpaque());
    EXPECT_FALSE(fresh.isFlipped());
}

TEST_F(HighlightViewTest, without_effects_nothing_is_drawn) { EXPECT_TRUE(draw().empty()); }

TEST_F(HighlightViewTest, a_window_without_width_or_height_gets_nothing)
{
    view.settings = Settings();
    view.settings.tintEnabled = true;
    view.tintHeight = 28;
    view.pulseProgress = 0.5;
    EXPECT_FALSE(draw().empty());
    for (const Rect& rect :
         {Rect{40, 40, 0, 200}, Rect{40, 40, 300, 0}, Rect{40, 40, -1, 200}, Rect{40, 40, 300, -1}}) {
        view.windowRect = rect;
        EXPECT_TRUE(draw().empty());
    }
}

TEST_F(HighlightViewTest, the_glow_is_the_shadow_of_the_window_outside_of_it)
{
    view.settings.glowEnabled = true;
    view.settings.glowRadius = 18;
    view.settings.glowOpacity = 0.8;
    view.settings.cornerRadius = 11;
    const RoundedRect window{kWindow, 11};
    EXPECT_EQ(draw(), (Calls{
                          Recorded::Save{},
                          Recorded::Clip{Path::rect(kBounds).add(window), FillRule::evenOdd},
                          Recorded::SetShadow{{18, {0, 0}, kAccentColor.withAlpha(0.8)}},
                          Recorded::Fill{Path().add(window), kAccentColor, FillRule::nonZero},
                          Recorded::Restore{},
                      }));
}

TEST_F(HighlightViewTest, a_glow_without_radius_is_not_drawn)
{
    view.settings.glowEnabled = true;
    for (const double radius : {0.0, -5.0}) {
        view.settings.glowRadius = radius;
        EXPECT_TRUE(draw().empty());
    }
}

TEST_F(HighlightViewTest, the_tint_covers_the_top_of_the_window_inside_its_corners)
{
    view.settings.tintEnabled = true;
    view.settings.tintOpacity = 0.25;
    view.settings.cornerRadius = 11;
    view.tintHeight = 28;
    EXPECT_EQ(
        draw(),
        (Calls{
            Recorded::Save{},
            Recorded::Clip{Path::roundedRect(kWindow, 11), FillRule::nonZero},
            Recorded::FillRect{{40, 212, 300, 28}, kAccentColor.withAlpha(0.25), CompositingOperation::sourceOver},
            Recorded::Restore{},
        }));
}

TEST_F(HighlightViewTest, the_tint_uses_the_operation_in_force)
{
    view.settings.tintEnabled = true;
    view.tintHeight = 28;
    RecordingCanvas canvas;
    canvas.setCompositingOperation(CompositingOperation::copy);
    view.draw(canvas, kBounds);
    ASSERT_EQ(canvas.drawings().size(), 1U);
    EXPECT_EQ(std::get<Recorded::FillRect>(canvas.drawings()[0].call).operation, CompositingOperation::copy);
}

TEST_F(HighlightViewTest, a_tint_higher_than_the_window_covers_the_window)
{
    view.settings.tintEnabled = true;
    view.tintHeight = 1e300;
    EXPECT_EQ(std::get<Recorded::FillRect>(draw().at(2)).rect, kWindow);
}

TEST_F(HighlightViewTest, without_a_height_there_is_no_tint)
{
    view.settings.tintEnabled = true;
    for (const std::optional<double> height : {std::optional<double>(), std::optional(0.0), std::optional(-3.0)}) {
        view.tintHeight = height;
        EXPECT_TRUE(draw().empty());
    }
    view.settings.tintEnabled = false;
    view.tintHeight = 28;
    EXPECT_TRUE(draw().empty());
}

TEST_F(HighlightViewTest, each_effect_has_the_accent_or_its_custom_colour)
{
    view.settings.borderEnabled = true;
    view.settings.glowEnabled = true;
    view.settings.tintEnabled = true;
    view.tintHeight = 28;
    for (EffectColor* effect : {&view.settings.glowColor, &view.settings.tintColor, &view.settings.borderColor})
        *effect = {false, kCustom};
    RecordingCanvas canvas;
    view.draw(canvas, kBounds);
    ASSERT_EQ(canvas.drawings().size(), 3U);
    EXPECT_EQ(std::get<Recorded::Fill>(canvas.drawings()[0].call).color, kCustomColor);
    EXPECT_EQ(canvas.drawings()[0].state.shadow->color, kCustomColor.withAlpha(view.settings.glowOpacity));
    EXPECT_EQ(std::get<Recorded::FillRect>(canvas.drawings()[1].call).color,
              kCustomColor.withAlpha(view.settings.tintOpacity));
    EXPECT_EQ(std::get<Recorded::Stroke>(canvas.drawings()[2].call).color, kCustomColor);
}

TEST_F(HighlightViewTest, glow_tint_border_and_pulse_follow_each_other_and_only_the_glow_has_a_shadow)
{
    view.settings.borderEnabled = true;
    view.settings.glowEnabled = true;
    view.settings.tintEnabled = true;
    view.settings.pulseEnabled = true;
    view.tintHeight = 28;
    view.pulseProgress = 0.5;
    RecordingCanvas canvas;
    view.draw(canvas, kBounds);
    const auto& drawings = canvas.drawings();
    ASSERT_EQ(drawings.size(), 4U);
    EXPECT_TRUE(std::holds_alternative<Recorded::Fill>(drawings[0].call));
    EXPECT_TRUE(std::holds_alternative<Recorded::FillRect>(drawings[1].call));
    EXPECT_DOUBLE_EQ(std::get<Recorded::Stroke>(drawings[2].call).color.alpha, kAccentColor.alpha);
    EXPECT_DOUBLE_EQ(std::get<Recorded::Stroke>(drawings[3].call).color.alpha, 0.45);
    EXPECT_TRUE(drawings[0].state.shadow.has_value());
    for (std::size_t i = 1; i < drawings.size(); ++i)
        EXPECT_FALSE(drawings[i].state.shadow.has_value());
    EXPECT_TRUE(drawings[2].state.clips.empty());
    EXPECT_TRUE(drawings[3].state.clips.empty());
}

TEST_F(HighlightViewTest, a_negative_corner_radius_counts_as_zero)
{
    view.settings.glowEnabled = true;
    view.settings.tintEnabled = true;
    view.settings.pulseEnabled = true;
    view.tintHeight = 28;
    view.pulseProgress = 0.5;
    view.settings.cornerRadius = -30;
    RecordingCanvas canvas;
    view.draw(canvas, kBounds);
    ASSERT_EQ(canvas.drawings().size(), 3U);
    EXPECT_EQ(std::get<Recorded::Fill>(canvas.drawings()[0].call).path, Path::roundedRect(kWindow, 0));
    EXPECT_EQ(canvas.drawings()[1].state.clips[0].path, Path::roundedRect(kWindow, 0));
    EXPECT_EQ(std::get<Recorded::Stroke>(canvas.drawings()[2].call).path, Path::roundedRect(kWindow.insetBy(-19.5), 0));
}

TEST_F(HighlightViewTest, a_glow_of_absurd_radius_is_limited)
{
    view.settings.glowEnabled = true;
    view.settings.glowRadius = std::numeric_limits<double>::max();
    EXPECT_EQ(std::get<Recorded::SetShadow>(draw().at(2)).shadow.blurRadius, HighlightView::kLargestGlowRadius);
    view.settings.glowRadius = 60;
    EXPECT_EQ(HighlightView::glowReach(view.settings), 60);
}

} // namespace
} // namespace haloric
