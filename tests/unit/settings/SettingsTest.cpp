#include "settings/Settings.h"

namespace haloric {
namespace {

TEST(SettingsTest, the_defaults_are_those_of_the_product)
{
    const RGBA accent{0.04, 0.52, 1.0, 1.0};
    const EffectColor color{true, accent};
    const Settings& record = Settings::defaults();
    EXPECT_EQ(record.accent, accent);
    EXPECT_EQ(record.cornerRadius, 11.0);
    EXPECT_TRUE(record.borderEnabled);
    EXPECT_EQ(record.borderColor, color);
    EXPECT_EQ(record.borderWidth, 3.0);
    EXPECT_TRUE(record.glowEnabled);
    EXPECT_EQ(record.glowColor, color);
    EXPECT_EQ(record.glowRadius, 18.0);
    EXPECT_EQ(record.glowOpacity, 0.8);
    EXPECT_FALSE(record.tintEnabled);
    EXPECT_EQ(record.tintColor, color);
    EXPECT_EQ(record.tintOpacity, 0.25);
    EXPECT_EQ(record.tintHeight, 28.0);
    EXPECT_FALSE(record.dimEnabled);
    EXPECT_EQ(record.dimColor, (RGBA{0, 0, 0, 1}));
    EXPECT_EQ(record.dimOpacity, 0.35);
    EXPECT_EQ(record.dimScope, DimScope::allWindows);
    EXPECT_TRUE(record.dimApps.empty());
    EXPECT_TRUE(record.pulseEnabled);
    EXPECT_FALSE(record.hideWhenFullScreen);
    EXPECT_FALSE(record.hotkeyEnabled);
}

TEST(SettingsTest, the_defaults_are_one_value)
{
    EXPECT_EQ(&Settings::defaults(), &Settings::defaults());
    EXPECT_EQ(Settings(), Settings::defaults());
}

TEST(SettingsTest, an_effect_is_drawn_in_the_accent_or_in_its_own_colour)
{
    Settings record;
    record.accent = {0.1, 0.2, 0.3, 0.4};
    record.glowColor.custom = {0.5, 0.6, 0.7, 0.8};
    EXPECT_EQ(record.resolve(record.glowColor), record.accent);
    record.glowColor.useAccent = false;
    EXPECT_EQ(record.resolve(record.glowColor), (RGBA{0.5, 0.6, 0.7, 0.8}));
}

TEST(SettingsTest, an_effect_whose_own_colour_was_never_chosen_is_drawn_in_the_default_accent)
{
    Settings record;
    record.accent = {1, 0, 0, 1};
    for (EffectColor Settings::*effect : {&Settings::borderColor, &Settings::glowColor, &Settings::tintColor}) {
        (record.*effect).useAccent = false;
        EXPECT_EQ(record.resolve(record.*effect), (RGBA{0.04, 0.52, 1.0, 1.0}));
    }
}

TEST(SettingsTest, the_order_of_the_dimmed_applications_matters)
{
    Settings one;
    Settings other;
    one.dimApps = {"org.example.a", "org.example.b"};
    other.dimApps = {"org.example.b", "org.example.a"};
    EXPECT_NE(one, other);
    other.dimApps = {"org.example.a", "org.example.b"};
    EXPECT_EQ(one, other);
    other.dimApps = {"org.example.a"};
    EXPECT_NE(one, other);
}

TEST(SettingsTest, doubles_are_compared_by_value)
{
    Settings one;
    Settings other;
    one.borderWidth = 0.0;
    other.borderWidth = -0.0;
    EXPECT_EQ(one, other);
}

TEST(SettingsTest, every_field_counts_for_equality)
{
    const std::vector<void (*)(Settings&)> changes{
        [](Settings& s) { s.accent.r = 9; },
        [](Settings& s) { s.accent.g = 9; },
        [](Settings& s) { s.accent.b = 9; },
        [](Settings& s) { s.accent.a = 9; },
        [](Settings& s) { s.cornerRadius = 9; },
        [](Settings& s) { s.borderEnabled = false; },
        [](Settings& s) { s.borderColor.useAccent = false; },
        [](Settings& s) { s.borderColor.custom.r = 9; },
        [](Settings& s) { s.borderWidth = 9; },
        [](Settings& s) { s.glowEnabled = false; },
        [](Settings& s) { s.glowColor.useAccent = false; },
        [](Settings& s) { s.glowRadius = 9; },
        [](Settings& s) { s.glowOpacity = 9; },
        [](Settings& s) { s.tintEnabled = true; },
        [](Settings& s) { s.tintColor.custom.a = 9; },
        [](Settings& s) { s.tintOpacity = 9; },
        [](Settings& s) { s.tintHeight = 9; },
        [](Settings& s) { s.dimEnabled = true; },
        [](Settings& s) { s.dimColor.b = 9; },
        [](Settings& s) { s.dimOpacity = 9; },
        [](Settings& s) { s.dimScope = DimScope::selectedApps; },
        [](Settings& s) { s.dimApps = {"a"}; },
        [](Settings& s) { s.pulseEnabled = false; },
        [](Settings& s) { s.hideWhenFullScreen = true; },
        [](Settings& s) { s.hotkeyEnabled = true; },
    };
    for (std::size_t index = 0; index < changes.size(); ++index) {
        Settings changed;
        changes[index](changed);
        EXPECT_NE(changed, Settings::defaults()) << index;
    }
}

TEST(DimScopeTest, its_cases_come_in_order_with_their_raw_values)
{
    std::vector<std::string_view> raw;
    for (const DimScope scope : kAllDimScopes)
        raw.push_back(rawValue(scope));
    EXPECT_EQ(raw, (std::vector<std::string_view>{"allWindows", "selectedApps"}));
}

TEST(DimScopeTest, only_its_raw_values_name_a_case)
{
    EXPECT_EQ(dimScopeFromRawValue("allWindows"), DimScope::allWindows);
    EXPECT_EQ(dimScopeFromRawValue("selectedApps"), DimScope::selectedApps);
    for (const char* text : {"", "AllWindows", "allWindows ", "selected"})
        EXPECT_FALSE(dimScopeFromRawValue(text).has_value()) << text;
}

TEST(RGBATest, it_becomes_a_colour_with_its_components_as_they_are)
{
    EXPECT_EQ(colorFrom(RGBA{-0.5, 0.25, 1.5, 2}), (Color{-0.5, 0.25, 1.5, 2}));
}

} // namespace
} // namespace haloric
