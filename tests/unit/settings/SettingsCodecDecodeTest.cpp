#include "settings/SettingsCodec.h"

#include <string>

namespace haloric {
namespace {

std::optional<Settings> decode(std::string_view text) { return SettingsCodec::decode(text); }

template <class Edit>
Settings defaultsBut(Edit edit)
{
    Settings settings;
    edit(settings);
    return settings;
}

TEST(SettingsCodecDecodeTest, an_empty_object_is_the_defaults)
{
    EXPECT_EQ(decode("{}"), Settings::defaults());
    EXPECT_EQ(decode(" \n{ }\t"), Settings::defaults());
}

TEST(SettingsCodecDecodeTest, missing_keys_keep_their_defaults)
{
    EXPECT_EQ(decode(R"({"borderWidth":5})"), defaultsBut([](Settings& s) { s.borderWidth = 5; }));
}

TEST(SettingsCodecDecodeTest, unknown_keys_are_ignored)
{
    EXPECT_EQ(decode(R"({"future":{"r":[1,null,"x"]},"borderWidth":5,"BorderWidth":"x"})"),
              defaultsBut([](Settings& s) { s.borderWidth = 5; }));
}

TEST(SettingsCodecDecodeTest, null_keeps_the_default_and_every_other_value_counts)
{
    EXPECT_EQ(decode(R"({"glowOpacity":null,"glowRadius":7,"dimScope":"selectedApps"})"), defaultsBut([](Settings& s) {
                  s.glowRadius = 7;
                  s.dimScope = DimScope::selectedApps;
              }));
}

TEST(SettingsCodecDecodeTest, null_keeps_the_default_of_every_key)
{
    for (const char* key :
         {"accent",       "cornerRadius",       "borderEnabled", "borderColor", "borderWidth", "glowEnabled",
          "glowColor",    "glowRadius",         "glowOpacity",   "tintEnabled", "tintColor",   "tintOpacity",
          "tintHeight",   "dimEnabled",         "dimColor",      "dimOpacity",  "dimScope",    "dimApps",
          "pulseEnabled", "hideWhenFullScreen", "hotkeyEnabled"})
        EXPECT_EQ(decode("{\"" + std::string(key) + "\":null}"), Settings::defaults()) << key;
}

TEST(SettingsCodecDecodeTest, members_may_stand_in_any_order)
{
    EXPECT_EQ(decode(R"({"dimEnabled":true,"accent":{"a":0.4,"g":0.2,"b":0.3,"r":0.1},"borderEnabled":false})"),
              defaultsBut([](Settings& s) {
                  s.dimEnabled = true;
                  s.accent = {0.1, 0.2, 0.3, 0.4};
                  s.borderEnabled = false;
              }));
}

TEST(SettingsCodecDecodeTest, numbers_may_take_any_form)
{
    for (const char* number : {"25", "25.0", "2.5e1", "250E-1", "25.000", "0.25e+2"})
        EXPECT_EQ(decode("{\"cornerRadius\":" + std::string(number) + "}"),
                  defaultsBut([](Settings& s) { s.cornerRadius = 25; }))
            << number;
    EXPECT_EQ(decode(R"({"cornerRadius":-3})")->cornerRadius, -3.0);
    EXPECT_EQ(decode(R"({"cornerRadius":18446744073709551615})")->cornerRadius, 18446744073709551616.0);
    EXPECT_EQ(decode(R"({"cornerRadius":123456789012345678901234567890})")->cornerRadius,
              123456789012345678901234567890.0);
}

TEST(SettingsCodecDecodeTest, no_range_is_enforced)
{
    const auto settings = decode(R"({"borderWidth":-1e300,"accent":{"r":-5,"g":7.5,"b":0,"a":1e9}})");
    ASSERT_TRUE(settings.has_value());
    EXPECT_EQ(settings->borderWidth, -1e300);
    EXPECT_EQ(settings->accent, (RGBA{-5, 7.5, 0, 1e9}));
}

TEST(SettingsCodecDecodeTest, a_colour_needs_all_its_members)
{
    for (const char* color :
         {R"({"g":1,"b":1,"a":1})", R"({"r":1,"b":1,"a":1})", R"({"r":1,"g":1,"a":1})", R"({"r":1,"g":1,"b":1})",
          R"({"r":null,"g":1,"b":1,"a":1})", R"({"r":1,"g":1,"b":1,"a":null})", R"({"r":true,"g":1,"b":1,"a":1})",
          R"({"r":1,"g":"1","b":1,"a":1})", "{}", "[1,1,1,1]", "\"red\"", "1", "false"}) {
        EXPECT_FALSE(decode("{\"accent\":" + std::string(color) + "}").has_value()) << color;
        EXPECT_FALSE(decode("{\"dimColor\":" + std::string(color) + "}").has_value()) << color;
        EXPECT_FALSE(decode("{\"glowColor\":{\"useAccent\":true,\"custom\":" + std::string(color) + "}}").has_value())
            << color;
    }
    EXPECT_TRUE(decode(R"({"accent":{"r":1,"g":1,"b":1,"a":1,"extra":[]}})").has_value());
}

TEST(SettingsCodecDecodeTest, a_colour_choice_needs_both_its_members)
{
    for (const char* choice : {R"({"useAccent":false})", R"({"custom":{"r":1,"g":1,"b":1,"a":1}})",
                               R"({"useAccent":0,"custom":{"r":1,"g":1,"b":1,"a":1}})",
                               R"({"useAccent":null,"custom":{"r":1,"g":1,"b":1,"a":1}})",
                               R"({"useAccent":true,"custom":null})", "{}", "[]", "true"})
        for (const char* key : {"borderColor", "glowColor", "tintColor"})
            EXPECT_FALSE(decode("{\"" + std::string(key) + "\":" + choice + "}").has_value()) << key << choice;
    const auto settings = decode(R"({"tintColor":{"useAccent":false,"custom":{"r":1,"g":0.5,"b":0,"a":0.25}}})");
    ASSERT_TRUE(settings.has_value());
    EXPECT_EQ(settings->tintColor, (EffectColor{false, {1, 0.5, 0, 0.25}}));
}

TEST(SettingsCodecDecodeTest, a_value_of_the_wrong_type_fails_the_whole_record)
{
    for (const char* key :
         {"cornerRadius", "borderWidth", "glowRadius", "glowOpacity", "tintOpacity", "tintHeight", "dimOpacity"})
        for (const char* value : {"true", "false", "\"5\"", "[]", "[5]", "{}"})
            EXPECT_FALSE(decode("{\"" + std::string(key) + "\":" + value + "}").has_value()) << key << value;
    for (const char* key : {"borderEnabled", "glowEnabled", "tintEnabled", "dimEnabled", "pulseEnabled",
                            "hideWhenFullScreen", "hotkeyEnabled"})
        for (const char* value : {"0", "1", "1.0", "\"true\"", "[]", "[true]", "{}"})
            EXPECT_FALSE(decode("{\"" + std::string(key) + "\":" + value + "}").has_value()) << key << value;
    for (const char* value : {"0", "true", "[]", "{}", "\"\"", "\"everything\"", "\"allwindows\"", "[\"allWindows\"]"})
        EXPECT_FALSE(decode("{\"dimScope\":" + std::string(value) + "}").has_value()) << value;
    for (const char* value : {"0", "true", "{}", "\"a\"", "[1]", "[null]", "[\"a\",false]", "[[\"a\"]]"})
        EXPECT_FALSE(decode("{\"dimApps\":" + std::string(value) + "}").has_value()) << value;
}

TEST(SettingsCodecDecodeTest, one_bad_value_spoils_the_good_ones_before_and_after_it)
{
    EXPECT_FALSE(decode(R"({"accent":{"r":1,"g":1,"b":1,"a":1},"dimScope":3,"hotkeyEnabled":true})").has_value());
}

TEST(SettingsCodecDecodeTest, the_dimmed_applications_keep_their_order_and_their_repeats)
{
    EXPECT_EQ(decode(R"({"dimApps":["b","a","b","","\u00e9\u0000"]})")->dimApps,
              (std::vector<std::string>{"b", "a", "b", "", std::string("\xc3\xa9\0", 3)}));
}

TEST(SettingsCodecDecodeTest, what_is_no_json_object_fails)
{
    using namespace std::string_view_literals;
    for (const std::string_view text : {""sv,
                                        " "sv,
                                        "null"sv,
                                        "[]"sv,
                                        "1"sv,
                                        "true"sv,
                                        "\"{}\""sv,
                                        "{"sv,
                                        "}"sv,
                                        "{}x"sv,
                                        "{}{}"sv,
                                        "{\"a\"}"sv,
                                        "{\"a\":}"sv,
                                        "{\"a\":1,}"sv,
                                        "{'a':1}"sv,
                                        "{} // comment"sv,
                                        "{}\0"sv,
                                        "{}\0garbage"sv,
                                        "\0"sv,
                                        "{\"a\":\"\xff\"}"sv,
                                        "{\"a\":\"\xc3\"}"sv,
                                        "{\"a\":\"\\ud800\"}"sv,
                                        "{\"a\":01}"sv,
                                        "{\"a\":+1}"sv,
                                        "{\"a\":NaN}"sv,
                                        "{\"a\":Infinity}"sv,
                                        "\x7f"
                                        "ELF"sv})
        EXPECT_FALSE(decode(text).has_value()) << text;
}

TEST(SettingsCodecDecodeTest, a_number_too_large_for_a_double_fails)
{
    for (const char* number : {"1e400", "-1e400", "1e999999999999"})
        EXPECT_FALSE(decode("{\"borderWidth\":" + std::string(number) + "}").has_value()) << number;
    EXPECT_EQ(decode(R"({"borderWidth":1e-400})")->borderWidth, 0.0) << "too small a number is zero";
}

TEST(SettingsCodecDecodeTest, of_a_key_that_is_repeated_the_last_value_counts)
{
    EXPECT_EQ(decode(R"({"borderWidth":5,"borderWidth":6})")->borderWidth, 6.0);
    EXPECT_FALSE(decode(R"({"borderWidth":5,"borderWidth":"6"})").has_value());
}

TEST(SettingsCodecDecodeTest, nesting_of_any_depth_is_survived)
{
    constexpr std::size_t kDepth = 200'000;
    const std::string opened(kDepth, '[');
    const std::string closed(kDepth, ']');
    EXPECT_FALSE(decode(opened).has_value());
    EXPECT_FALSE(decode(opened + closed).has_value());
    EXPECT_FALSE(decode("{\"accent\":" + opened + closed + "}").has_value());
    EXPECT_EQ(decode("{\"unknown\":" + opened + closed + "}"), Settings::defaults());
    std::string objects;
    for (std::size_t depth = 0; depth < kDepth / 10; ++depth)
        objects += "{\"accent\":";
    EXPECT_FALSE(decode(objects).has_value());
}

// In the manner of an encoder that writes no fraction for whole numbers, escapes slashes and writes what lies beyond
// 16 bits as a pair, with its members in the order of a hash table.
TEST(SettingsCodecDecodeTest, a_record_of_another_encoder_is_read)
{
    constexpr const char* kRecord =
        R"({"tintHeight":30,"dimApps":["org.example.a\/b","org.example.\ud83d\ude00","org.example.\u00e9"],)"
        R"("glowColor":{"custom":{"b":0,"a":1,"r":1,"g":0.5},"useAccent":false},"hotkeyEnabled":true,"dimOpacity":0.5,)"
        R"("accent":{"g":0,"a":1,"b":1,"r":0},"pulseEnabled":false,"borderWidth":2,"dimScope":"selectedApps",)"
        R"("glowOpacity":1,"tintColor":{"useAccent":true,"custom":{"a":0,"b":1,"g":1,"r":1}},"dimEnabled":true,)"
        R"("cornerRadius":0,"glowRadius":1.8e1,"hideWhenFullScreen":true,"tintOpacity":0.25000000000000006,)"
        R"("borderColor":{"custom":{"r":0.040000000000000001,"a":1,"g":0.52000000000000002,"b":1},"useAccent":true},)"
        R"("dimColor":{"b":1,"r":1,"a":1,"g":1},"borderEnabled":false,"tintEnabled":true,"glowEnabled":false})";
    Settings expected;
    expected.tintHeight = 30;
    expected.dimApps = {"org.example.a/b", "org.example.\xf0\x9f\x98\x80", "org.example.\xc3\xa9"};
    expected.glowColor = {false, {1, 0.5, 0, 1}};
    expected.hotkeyEnabled = true;
    expected.dimOpacity = 0.5;
    expected.accent = {0, 0, 1, 1};
    expected.pulseEnabled = false;
    expected.borderWidth = 2;
    expected.dimScope = DimScope::selectedApps;
    expected.glowOpacity = 1;
    expected.tintColor = {true, {1, 1, 1, 0}};
    expected.dimEnabled = true;
    expected.cornerRadius = 0;
    expected.glowRadius = 18;
    expected.hideWhenFullScreen = true;
    expected.tintOpacity = 0.25000000000000006;
    expected.dimColor = {1, 1, 1, 1};
    expected.borderEnabled = false;
    expected.tintEnabled = true;
    expected.glowEnabled = false;
    EXPECT_EQ(decode(kRecord), expected);
}

} // namespace
} // namespace haloric
