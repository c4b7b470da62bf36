// Toggles, colour wells and the picker: what they show of the record, and what they write to it.
#include "unit/settings/SettingsViewFixture.h"

#include <limits>

namespace haloric {
namespace {

using SettingsViewControlsTest = SettingsViewFixture;

constexpr Color kPicked{0.1, 0.2, 0.3, 1};

struct ToggleCase {
    const char* id;
    bool Settings::*field;
};

constexpr std::array kToggles{
    ToggleCase{"hideWhenFullScreen", &Settings::hideWhenFullScreen},
    ToggleCase{"borderEnabled", &Settings::borderEnabled},
    ToggleCase{"glowEnabled", &Settings::glowEnabled},
    ToggleCase{"tintEnabled", &Settings::tintEnabled},
    ToggleCase{"dimEnabled", &Settings::dimEnabled},
    ToggleCase{"pulseEnabled", &Settings::pulseEnabled},
    ToggleCase{"hotkeyEnabled", &Settings::hotkeyEnabled},
};

struct EffectCase {
    const char* id;
    EffectColor Settings::*field;
};

constexpr std::array kEffects{
    EffectCase{"borderColor", &Settings::borderColor},
    EffectCase{"glowColor", &Settings::glowColor},
    EffectCase{"tintColor", &Settings::tintColor},
};

TEST_F(SettingsViewControlsTest, each_toggle_shows_its_field)
{
    for (const auto& [id, field] : kToggles)
        for (const bool isOn : {true, false}) {
            store.update([&](Settings& s) { s.*field = isOn; });
            EXPECT_EQ(control<FormToggle>(id).isOn, isOn) << id;
            EXPECT_TRUE(control<FormToggle>(id).isEnabled) << id;
        }
}

TEST_F(SettingsViewControlsTest, each_toggle_writes_its_field_alone)
{
    for (const auto& [id, field] : kToggles)
        for (const bool isOn : {true, false}) {
            store.setSettings(Settings::defaults());
            control<FormToggle>(id).set(isOn);
            EXPECT_EQ(store.settings(), defaultsBut([&](Settings& s) { s.*field = isOn; })) << id;
        }
}

TEST_F(SettingsViewControlsTest, the_plain_colours_are_shown_and_written)
{
    const std::vector<std::pair<const char*, RGBA Settings::*>> wells{{"accent", &Settings::accent},
                                                                      {"dimColor", &Settings::dimColor}};
    for (const auto& [id, field] : wells) {
        store.setSettings(Settings::defaults());
        EXPECT_EQ(control<FormColorWell>(id).color, colorFrom(Settings::defaults().*field)) << id;
        EXPECT_TRUE(control<FormColorWell>(id).isEnabled) << id;
        control<FormColorWell>(id).set(kPicked);
        EXPECT_EQ(store.settings(), defaultsBut([&](Settings& s) { s.*field = RGBA{0.1, 0.2, 0.3, 1}; })) << id;
        EXPECT_EQ(control<FormColorWell>(id).color, kPicked) << id;
    }
}

TEST_F(SettingsViewControlsTest, an_effect_s_own_colour_is_shown_and_written)
{
    for (const auto& [id, field] : kEffects) {
        const std::string custom = std::string(id) + ".custom";
        store.setSettings(defaultsBut([&](Settings& s) { (s.*field).useAccent = false; }));
        EXPECT_EQ(control<FormColorWell>(custom).color, (Color{0.04, 0.52, 1, 1})) << id;
        control<FormColorWell>(custom).set(kPicked);
        EXPECT_EQ(store.settings(), defaultsBut([&](Settings& s) {
                      s.*field = {false, RGBA{0.1, 0.2, 0.3, 1}};
                  }))
            << id;
    }
}

TEST_F(SettingsViewControlsTest, an_effect_s_own_colour_is_enabled_only_while_it_is_in_use)
{
    for (const auto& [id, field] : kEffects) {
        const std::string useAccent = std::string(id) + ".useAccent";
        const std::string custom = std::string(id) + ".custom";
        EXPECT_TRUE(control<FormToggle>(useAccent).isOn) << id;
        EXPECT_FALSE(control<FormColorWell>(custom).isEnabled) << id;
        control<FormToggle>(useAccent).set(false);
        EXPECT_EQ(store.settings(), defaultsBut([&](Settings& s) { (s.*field).useAccent = false; })) << id;
        EXPECT_FALSE(control<FormToggle>(useAccent).isOn) << id;
        EXPECT_TRUE(control<FormColorWell>(custom).isEnabled) << id;
        control<FormToggle>(useAccent).set(true);
        EXPECT_EQ(store.settings(), Settings::defaults()) << id;
    }
}

TEST_F(SettingsViewControlsTest, an_effect_s_own_colour_comes_back_after_the_accent_was_in_use)
{
    control<FormToggle>("glowColor.useAccent").set(false);
    control<FormColorWell>("glowColor.custom").set(kPicked);
    control<FormToggle>("glowColor.useAccent").set(true);
    EXPECT_EQ(control<FormColorWell>("glowColor.custom").color, kPicked);
    control<FormToggle>("glowColor.useAccent").set(false);
    EXPECT_EQ(store.settings().glowColor.custom, (RGBA{0.1, 0.2, 0.3, 1}));
}

TEST_F(SettingsViewControlsTest, colours_beyond_the_nominal_range_are_kept_as_they_are)
{
    control<FormColorWell>("accent").set({-0.2, 1.3, 0.5, 0.4});
    EXPECT_EQ(store.settings().accent, (RGBA{-0.2, 1.3, 0.5, 0.4}));
}

TEST_F(SettingsViewControlsTest, a_colour_that_is_not_finite_is_ignored)
{
    for (const double strange : {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()})
        for (double Color::*component : {&Color::red, &Color::green, &Color::blue, &Color::alpha})
            for (const char* id : {"accent", "borderColor.custom", "dimColor"}) {
                Color color = kPicked;
                color.*component = strange;
                control<FormColorWell>(id).set(color);
            }
    EXPECT_TRUE(defaults.writes.empty());
}

TEST_F(SettingsViewControlsTest, the_picker_offers_both_scopes_and_shows_the_one_in_force)
{
    EXPECT_EQ(control<FormPicker>("dimScope").options, (Texts{"All other windows", "Only selected apps"}));
    EXPECT_EQ(control<FormPicker>("dimScope").selected, 0U);
    store.update([](Settings& s) { s.dimScope = DimScope::selectedApps; });
    EXPECT_EQ(control<FormPicker>("dimScope").selected, 1U);
}

TEST_F(SettingsViewControlsTest, the_picker_writes_the_scope)
{
    control<FormPicker>("dimScope").choose(1);
    EXPECT_EQ(store.settings(), defaultsBut([](Settings& s) { s.dimScope = DimScope::selectedApps; }));
    control<FormPicker>("dimScope").choose(0);
    EXPECT_EQ(store.settings(), Settings::defaults());
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

} // namespace
} // namespace haloric
