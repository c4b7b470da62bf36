#include "settings/SettingsCodec.h"

#include <limits>
#include <string>

namespace haloric {
namespace {

TEST(SettingsCodecEncodeTest, all_keys_are_written_in_the_order_of_the_fields)
{
    const std::string accent = R"({"r":0.04,"g":0.52,"b":1.0,"a":1.0})";
    const std::string effect = R"({"useAccent":true,"custom":)" + accent + "}";
    EXPECT_EQ(SettingsCodec::encode(Settings::defaults()),
              "{\"accent\":" + accent + R"(,"cornerRadius":11.0,"borderEnabled":true,"borderColor":)" + effect +
                  R"(,"borderWidth":3.0,"glowEnabled":true,"glowColor":)" + effect +
                  R"(,"glowRadius":18.0,"glowOpacity":0.8,"tintEnabled":false,"tintColor":)" + effect +
                  R"(,"tintOpacity":0.25,"tintHeight":28.0,"dimEnabled":false)" +
                  R"(,"dimColor":{"r":0.0,"g":0.0,"b":0.0,"a":1.0},"dimOpacity":0.35,"dimScope":"allWindows")" +
                  R"(,"dimApps":[],"pulseEnabled":true,"hideWhenFullScreen":false,"hotkeyEnabled":false})");
}

TEST(SettingsCodecEncodeTest, each_field_is_written_under_its_own_key)
{
    Settings settings;
    settings.accent = {1, 2, 3, 4};
    settings.cornerRadius = 5;
    settings.borderEnabled = false;
    settings.borderColor = {false, {6, 7, 8, 9}};
    settings.borderWidth = 10;
    settings.glowEnabled = false;
    settings.glowColor = {false, {11, 12, 13, 14}};
    settings.glowRadius = 15;
    settings.glowOpacity = 16;
    settings.tintEnabled = true;
    settings.tintColor = {false, {17, 18, 19, 20}};
    settings.tintOpacity = 21;
    settings.tintHeight = 22;
    settings.dimEnabled = true;
    settings.dimColor = {23, 24, 25, 26};
    settings.dimOpacity = 27;
    settings.dimScope = DimScope::selectedApps;
    settings.dimApps = {"org.example.a", "quote\"\n"};
    settings.pulseEnabled = false;
    settings.hideWhenFullScreen = true;
    settings.hotkeyEnabled = true;
    EXPECT_EQ(SettingsCodec::encode(settings),
              R"({"accent":{"r":1.0,"g":2.0,"b":3.0,"a":4.0},"cornerRadius":5.0,"borderEnabled":false,)"
              R"("borderColor":{"useAccent":false,"custom":{"r":6.0,"g":7.0,"b":8.0,"a":9.0}},"borderWidth":10.0,)"
              R"("glowEnabled":false,"glowColor":{"useAccent":false,"custom":{"r":11.0,"g":12.0,"b":13.0,"a":14.0}},)"
              R"("glowRadius":15.0,"glowOpacity":16.0,"tintEnabled":true,)"
              R"("tintColor":{"useAccent":false,"custom":{"r":17.0,"g":18.0,"b":19.0,"a":20.0}},"tintOpacity":21.0,)"
              R"("tintHeight":22.0,"dimEnabled":true,"dimColor":{"r":23.0,"g":24.0,"b":25.0,"a":26.0},)"
              R"("dimOpacity":27.0,"dimScope":"selectedApps","dimApps":["org.example.a","quote\"\n"],)"
              R"("pulseEnabled":false,"hideWhenFullScreen":true,"hotkeyEnabled":true})");
}

TEST(SettingsCodecEncodeTest, a_number_that_is_not_finite_has_no_form_in_any_field)
{
    using Limits = std::numeric_limits<double>;
    for (const double odd : {Limits::quiet_NaN(), Limits::infinity(), -Limits::infinity()}) {
        for (double Settings::*field :
             {&Settings::cornerRadius, &Settings::borderWidth, &Settings::glowRadius, &Settings::glowOpacity,
              &Settings::tintOpacity, &Settings::tintHeight, &Settings::dimOpacity}) {
            Settings settings;
            settings.*field = odd;
            EXPECT_FALSE(SettingsCodec::encode(settings).has_value());
        }
        for (double RGBA::*component : {&RGBA::r, &RGBA::g, &RGBA::b, &RGBA::a}) {
            for (RGBA Settings::*color : {&Settings::accent, &Settings::dimColor}) {
                Settings settings;
                settings.*color.*component = odd;
                EXPECT_FALSE(SettingsCodec::encode(settings).has_value());
            }
            for (EffectColor Settings::*effect : {&Settings::borderColor, &Settings::glowColor, &Settings::tintColor}) {
                Settings settings;
                (settings.*effect).custom.*component = odd;
                EXPECT_FALSE(SettingsCodec::encode(settings).has_value());
            }
        }
    }
}

TEST(SettingsCodecEncodeTest, an_identifier_that_is_not_utf_8_has_no_form)
{
    for (const char* bytes : {"\xff", "\xc3", "a\x80", "\xed\xa0\x80", "\xc0\xaf", "\xf5\x80\x80\x80"}) {
        Settings settings;
        settings.dimApps = {"org.example.a", bytes};
        EXPECT_FALSE(SettingsCodec::encode(settings).has_value()) << bytes;
    }
}

} // namespace
} // namespace haloric
