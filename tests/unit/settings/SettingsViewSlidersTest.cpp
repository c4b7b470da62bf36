// The seven sliders: range, steps, the value in the label, and values beside the scale.
#include "unit/settings/SettingsViewFixture.h"

#include <cstdlib>
#include <limits>

namespace haloric {
namespace {

using Limits = std::numeric_limits<double>;

// Bounds and step in hundredths, so that each expected value is read from its decimal text.
struct SliderCase {
    const char* id;
    double Settings::*field;
    int minimum, maximum, step;
    const char* prefix;
};

constexpr std::array kSliders{
    SliderCase{"cornerRadius", &Settings::cornerRadius, 0, 2000, 100, "Corner radius: "},
    SliderCase{"borderWidth", &Settings::borderWidth, 100, 1200, 50, "Width: "},
    SliderCase{"glowRadius", &Settings::glowRadius, 400, 6000, 100, "Radius: "},
    SliderCase{"glowOpacity", &Settings::glowOpacity, 10, 100, 5, "Intensity: "},
    SliderCase{"tintOpacity", &Settings::tintOpacity, 5, 80, 5, "Opacity: "},
    SliderCase{"tintHeight", &Settings::tintHeight, 1600, 6000, 100, "Fallback height: "},
    SliderCase{"dimOpacity", &Settings::dimOpacity, 5, 90, 5, "Strength: "},
};

double decimal(int hundredths)
{
    const std::string digits = std::to_string(100 + hundredths % 100).substr(1);
    return std::strtod((std::to_string(hundredths / 100) + "." + digits).c_str(), nullptr);
}

class SettingsViewSlidersTest : public SettingsViewFixture {
protected:
    double moved(const SliderCase& slider, double to)
    {
        control<FormSlider>(slider.id).set(to);
        return store.settings().*slider.field;
    }

    std::string labelAt(const SliderCase& slider, double value)
    {
        store.update([&](Settings& s) { s.*slider.field = value; });
        return control<FormSlider>(slider.id).label;
    }
};

TEST_F(SettingsViewSlidersTest, each_has_its_range_and_its_step)
{
    for (const SliderCase& slider : kSliders) {
        EXPECT_EQ(control<FormSlider>(slider.id).minimum, decimal(slider.minimum)) << slider.id;
        EXPECT_EQ(control<FormSlider>(slider.id).maximum, decimal(slider.maximum)) << slider.id;
        EXPECT_EQ(control<FormSlider>(slider.id).step, decimal(slider.step)) << slider.id;
    }
}

TEST_F(SettingsViewSlidersTest, each_shows_its_field_and_writes_it_alone)
{
    for (const SliderCase& slider : kSliders) {
        store.setSettings(Settings::defaults());
        EXPECT_EQ(control<FormSlider>(slider.id).value, Settings::defaults().*slider.field) << slider.id;
        control<FormSlider>(slider.id).set(decimal(slider.maximum));
        EXPECT_EQ(store.settings(), defaultsBut([&](Settings& s) { s.*slider.field = decimal(slider.maximum); }))
            << slider.id;
        EXPECT_EQ(control<FormSlider>(slider.id).value, decimal(slider.maximum)) << slider.id;
    }
}

TEST_F(SettingsViewSlidersTest, every_step_is_stored_as_the_double_nearest_to_its_decimal)
{
    for (const SliderCase& slider : kSliders) {
        const FormSlider shown = control<FormSlider>(slider.id);
        for (int index = 0; slider.minimum + index * slider.step <= slider.maximum; ++index) {
            const double expected = decimal(slider.minimum + index * slider.step);
            EXPECT_EQ(moved(slider, shown.minimum + index * shown.step), expected) << slider.id;
            EXPECT_EQ(moved(slider, expected), expected) << slider.id;
        }
    }
}

TEST_F(SettingsViewSlidersTest, steps_added_one_by_one_end_on_the_decimals_too)
{
    for (const SliderCase& slider : kSliders) {
        const FormSlider shown = control<FormSlider>(slider.id);
        double sum = shown.minimum;
        for (int value = slider.minimum; value <= slider.maximum; value += slider.step, sum += shown.step)
            EXPECT_EQ(moved(slider, sum), decimal(value)) << slider.id;
    }
}

TEST_F(SettingsViewSlidersTest, a_value_between_steps_goes_to_the_nearer_one)
{
    for (const SliderCase& slider : kSliders)
        for (int value = slider.minimum; value < slider.maximum; value += slider.step) {
            const double step = decimal(slider.step);
            EXPECT_EQ(moved(slider, decimal(value) + 0.4 * step), decimal(value)) << slider.id;
            EXPECT_EQ(moved(slider, decimal(value) + 0.6 * step), decimal(value + slider.step)) << slider.id;
        }
}

TEST_F(SettingsViewSlidersTest, none_can_be_moved_out_of_its_range)
{
    for (const SliderCase& slider : kSliders) {
        for (const double low : {-0.001, -1e19, Limits::lowest()})
            EXPECT_EQ(moved(slider, low), decimal(slider.minimum)) << slider.id;
        for (const double high : {60.001, 1e19, Limits::max()})
            EXPECT_EQ(moved(slider, high), decimal(slider.maximum)) << slider.id;
    }
}

TEST_F(SettingsViewSlidersTest, a_move_to_what_is_no_finite_number_is_ignored)
{
    for (const SliderCase& slider : kSliders)
        for (const double strange : {Limits::quiet_NaN(), Limits::infinity(), -Limits::infinity()})
            control<FormSlider>(slider.id).set(strange);
    EXPECT_TRUE(defaults.writes.empty());
}

TEST_F(SettingsViewSlidersTest, a_stored_value_beside_the_scale_is_shown_and_stays_until_the_slider_is_moved)
{
    for (const SliderCase& slider : kSliders)
        for (const double stored : {-3.0, 0.123, 99.0, 1e300, Limits::infinity()}) {
            store.update([&](Settings& s) { s.*slider.field = stored; });
            EXPECT_EQ(control<FormSlider>(slider.id).value, stored) << slider.id;
            control<FormToggle>("pulseEnabled").set(false);
            EXPECT_EQ(store.settings().*slider.field, stored) << slider.id;
            EXPECT_EQ(moved(slider, stored < 50 ? -3.0 : 99.0), decimal(stored < 50 ? slider.minimum : slider.maximum))
                << slider.id;
        }
}

TEST_F(SettingsViewSlidersTest, with_the_defaults_the_labels_show_the_defaults)
{
    const std::vector<std::string> values{"11 pt", "3.0 pt", "18 pt", "80%", "25%", "28 pt", "35%"};
    for (std::size_t index = 0; index < kSliders.size(); ++index)
        EXPECT_EQ(control<FormSlider>(kSliders[index].id).label, kSliders[index].prefix + values[index]);
}

TEST_F(SettingsViewSlidersTest, the_label_follows_each_move)
{
    control<FormSlider>("borderWidth").set(7.5);
    EXPECT_EQ(control<FormSlider>("borderWidth").label, "Width: 7.5 pt");
    control<FormSlider>("tintHeight").set(31);
    EXPECT_EQ(control<FormSlider>("tintHeight").label, "Fallback height: 31 pt");
    control<FormSlider>("dimOpacity").set(0.55);
    EXPECT_EQ(control<FormSlider>("dimOpacity").label, "Strength: 55%");
}

TEST_F(SettingsViewSlidersTest, labels_of_whole_points_truncate_toward_zero)
{
    for (const std::size_t index : {0U, 2U, 5U}) {
        EXPECT_EQ(labelAt(kSliders[index], 17.999), kSliders[index].prefix + std::string("17 pt"));
        EXPECT_EQ(labelAt(kSliders[index], -0.5), kSliders[index].prefix + std::string("0 pt"));
    }
}

TEST_F(SettingsViewSlidersTest, labels_of_percentages_truncate_toward_zero)
{
    ASSERT_LT(0.29 * 100, 29);
    for (const std::size_t index : {3U, 4U, 6U})
        EXPECT_EQ(labelAt(kSliders[index], 0.29), kSliders[index].prefix + std::string("28%"));
}

TEST_F(SettingsViewSlidersTest, the_border_s_width_has_one_decimal)
{
    EXPECT_EQ(labelAt(kSliders[1], 2.46), "Width: 2.5 pt");
}

TEST_F(SettingsViewSlidersTest, every_stored_number_has_a_label)
{
    for (const SliderCase& slider : kSliders)
        for (const double stored : {Limits::quiet_NaN(), Limits::infinity(), Limits::lowest(), 1e19, 5e-324})
            EXPECT_TRUE(labelAt(slider, stored).starts_with(slider.prefix)) << slider.id;
}

} // namespace
} // namespace haloric
