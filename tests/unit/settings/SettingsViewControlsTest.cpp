// Effect colours, the picker, sliders and buttons. That each control shows and writes only its own field is a property
// in SettingsViewPropertyTest.
#include "unit/settings/SettingsViewFixture.h"

#include <cstdlib>
#include <limits>

namespace haloric {
namespace {

constexpr Color kPicked{0.1, 0.2, 0.3, 1};

// Bounds and step in hundredths, so that each expected value is read from its decimal text.
struct SliderCase {
    const char* id;
    double Settings::*field;
    int minimum, maximum, step;
};

constexpr std::array kSliders{
    SliderCase{"cornerRadius", &Settings::cornerRadius, 0, 2000, 100},
    SliderCase{"borderWidth", &Settings::borderWidth, 100, 1200, 50},
    SliderCase{"glowRadius", &Settings::glowRadius, 400, 6000, 100},
    SliderCase{"glowOpacity", &Settings::glowOpacity, 10, 100, 5},
    SliderCase{"tintOpacity", &Settings::tintOpacity, 5, 80, 5},
    SliderCase{"tintHeight", &Settings::tintHeight, 1600, 6000, 100},
    SliderCase{"dimOpacity", &Settings::dimOpacity, 5, 90, 5},
};

double decimal(int hundredths)
{
    const std::string digits = std::to_string(100 + hundredths % 100).substr(1);
    return std::strtod((std::to_string(hundredths / 100) + "." + digits).c_str(), nullptr);
}

class SettingsViewControlsTest : public SettingsViewFixture {
protected:
    double moved(const SliderCase& slider, double to)
    {
        control<FormSlider>(slider.id).set(to);
        return store.settings().*slider.field;
    }
};

TEST_F(SettingsViewControlsTest, an_effect_s_custom_colour_is_enabled_only_while_it_is_in_use)
{
    for (const std::string id : {"borderColor", "glowColor", "tintColor"}) {
        EXPECT_FALSE(control<FormColorWell>(id + ".custom").isEnabled) << id;
        control<FormToggle>(id + ".useAccent").set(false);
        EXPECT_TRUE(control<FormColorWell>(id + ".custom").isEnabled) << id;
        control<FormToggle>(id + ".useAccent").set(true);
        EXPECT_EQ(store.settings(), Settings::defaults()) << id;
    }
}

TEST_F(SettingsViewControlsTest, an_effect_s_custom_colour_is_kept_while_the_accent_is_in_use)
{
    control<FormToggle>("glowColor.useAccent").set(false);
    control<FormColorWell>("glowColor.custom").set(kPicked);
    control<FormToggle>("glowColor.useAccent").set(true);
    EXPECT_EQ(control<FormColorWell>("glowColor.custom").color, kPicked);
    control<FormToggle>("glowColor.useAccent").set(false);
    EXPECT_EQ(store.settings().glowColor.custom, (RGBA{0.1, 0.2, 0.3, 1}));
}

TEST_F(SettingsViewControlsTest, a_colour_with_a_component_that_is_not_finite_is_ignored)
{
    for (const double strange : {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()})
        for (double Color::*component : {&Color::red, &Color::green, &Color::blue, &Color::alpha}) {
            Color color = kPicked;
            color.*component = strange;
            control<FormColorWell>("accent").set(color);
        }
    EXPECT_TRUE(defaults.writes.empty());
}

TEST_F(SettingsViewControlsTest, the_picker_offers_both_scopes_and_shows_the_current_one)
{
    EXPECT_EQ(control<FormPicker>("dimScope").options, (Texts{"All other windows", "Only selected apps"}));
    EXPECT_EQ(control<FormPicker>("dimScope").selected, 0U);
    store.update([](Settings& s) { s.dimScope = DimScope::selectedApps; });
    EXPECT_EQ(control<FormPicker>("dimScope").selected, 1U);
}

TEST_F(SettingsViewControlsTest, an_option_that_does_not_exist_is_ignored)
{
    control<FormPicker>("dimScope").choose(2);
    control<FormPicker>("dimScope").choose(std::numeric_limits<std::size_t>::max());
    EXPECT_TRUE(defaults.writes.empty());
}

TEST_F(SettingsViewControlsTest, every_edit_is_saved_at_once)
{
    control<FormToggle>("dimEnabled").set(true);
    control<FormToggle>("dimEnabled").set(true);
    EXPECT_EQ(defaults.writes.size(), 2U) << "also one that changes nothing";
    EXPECT_EQ(SettingsStore(defaults).settings(), store.settings());
}

TEST_F(SettingsViewControlsTest, each_slider_has_its_range_and_its_step)
{
    for (const SliderCase& slider : kSliders) {
        EXPECT_EQ(control<FormSlider>(slider.id).minimum, decimal(slider.minimum)) << slider.id;
        EXPECT_EQ(control<FormSlider>(slider.id).maximum, decimal(slider.maximum)) << slider.id;
        EXPECT_EQ(control<FormSlider>(slider.id).step, decimal(slider.step)) << slider.id;
    }
}

TEST_F(SettingsViewControlsTest, every_step_is_stored_as_the_double_nearest_to_its_decimal)
{
    for (const SliderCase& slider : kSliders) {
        const FormSlider shown = control<FormSlider>(slider.id);
        for (int index = 0; slider.minimum + index * slider.step <= slider.maximum; ++index) {
            const double expected = decimal(slider.minimum + index * slider.step);
            EXPECT_EQ(moved(slider, shown.minimum + index * shown.step), expected) << slider.id;
        }
    }
}

TEST_F(SettingsViewControlsTest, a_stored_value_off_the_scale_is_shown_and_kept_until_the_slider_is_moved)
{
    for (const SliderCase& slider : kSliders)
        for (const double stored : {-3.0, 0.123, 99.0, 1e300, std::numeric_limits<double>::infinity()}) {
            store.update([&](Settings& s) { s.*slider.field = stored; });
            EXPECT_EQ(control<FormSlider>(slider.id).value, stored) << slider.id;
            control<FormToggle>("pulseEnabled").set(false);
            EXPECT_EQ(store.settings().*slider.field, stored) << slider.id;
            EXPECT_EQ(moved(slider, stored < 50 ? -3.0 : 99.0), decimal(stored < 50 ? slider.minimum : slider.maximum))
                << slider.id;
        }
}

TEST_F(SettingsViewControlsTest, reset_writes_the_defaults)
{
    store.setSettings(defaultsBut([](Settings& s) {
        s.borderWidth = 9;
        s.dimScope = DimScope::selectedApps;
        s.dimApps = {"org.example.mail"};
        s.accent = {1, 0, 0, 1};
    }));
    control<FormButton>("resetToDefaults").perform();
    EXPECT_EQ(store.settings(), Settings::defaults());
    EXPECT_EQ(SettingsStore(defaults).settings(), Settings::defaults());
}

TEST_F(SettingsViewControlsTest, reset_does_not_change_the_login_item)
{
    control<FormToggle>("launchAtLogin").set(true);
    control<FormButton>("resetToDefaults").perform();
    EXPECT_TRUE(control<FormToggle>("launchAtLogin").isOn);
    EXPECT_EQ(loginItems.changes, Texts{"register"});
}

TEST_F(SettingsViewControlsTest, the_grant_prompts_and_opens_the_accessibility_pane)
{
    accessibility.trusted = false;
    control<FormButton>("grantAccessibility").perform();
    EXPECT_EQ(accessibility.prompts, std::vector{true});
    EXPECT_EQ(workspace.openedURLs,
              Texts{"x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility"});
}

TEST_F(SettingsViewControlsTest, restart_restarts_once)
{
    control<FormButton>("restart").perform();
    EXPECT_EQ(restarts, 1);
    EXPECT_FALSE(application.terminated) << "terminating is part of the restart";
}

TEST_F(SettingsViewControlsTest, quit_terminates_the_application)
{
    control<FormButton>("quit").perform();
    EXPECT_EQ(application.calls, Texts{"terminate"});
    EXPECT_EQ(restarts, 0);
}

} // namespace
} // namespace haloric
