#include "hosts/linux/files/InfoPlist.h"

namespace haloric {
namespace {

std::optional<std::string> value(std::string_view inside, std::string_view key = "key")
{
    return InfoPlist::parse("<plist version=\"1.0\"><dict>" + std::string(inside) + "</dict></plist>").string(key);
}

TEST(InfoPlist, a_whole_file_is_read)
{
    const auto dictionary = InfoPlist::parse(R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE plist PUBLIC "-//A//DTD PLIST 1.0//EN" "http://localhost/p.dtd">
<plist version="1.0">
<dict>
    <!-- <key>hidden</key><string>comment</string> -->
    <key>CFBundleName</key>
    <string>Haloric</string>
    <key>LSUIElement</key>
    <true/>
    <key>SUFeedURL</key>
    <string>https://example.org/feed?a=1&amp;b=2</string>
</dict>
</plist>)");
    EXPECT_EQ(dictionary.string("CFBundleName"), "Haloric");
    EXPECT_EQ(dictionary.string("SUFeedURL"), "https://example.org/feed?a=1&b=2");
    EXPECT_EQ(dictionary.string("LSUIElement"), std::nullopt);
    EXPECT_EQ(dictionary.string("hidden"), std::nullopt);
}

TEST(InfoPlist, values_that_are_no_text_are_passed_over)
{
    EXPECT_EQ(value("<key>key</key><integer>4</integer>"), std::nullopt);
    EXPECT_EQ(value("<key>other</key><integer>4</integer><key>key</key><string>a</string>"), "a");
    EXPECT_EQ(value("<key>other</key><true/><string>stray</string>"), std::nullopt);
}

TEST(InfoPlist, inner_dictionaries_and_lists_do_not_count)
{
    EXPECT_EQ(value("<key>a</key><dict><key>key</key><string>inner</string></dict>"), std::nullopt);
    EXPECT_EQ(value("<key>key</key><array><string>inner</string></array>"), std::nullopt);
    EXPECT_EQ(value("<key>a</key><dict><key>key</key><string>inner</string></dict><key>key</key><string>b</string>"),
              "b");
}

TEST(InfoPlist, the_first_of_equal_keys_holds)
{
    EXPECT_EQ(value("<key>key</key><string>a</string><key>key</key><string>b</string>"), "a");
}

TEST(InfoPlist, an_empty_text_is_a_value)
{
    EXPECT_EQ(value("<key>key</key><string></string>"), "");
    EXPECT_EQ(value("<key>key</key><string/>"), "");
}

TEST(InfoPlist, references_to_characters_are_resolved)
{
    EXPECT_EQ(value("<key>key</key><string>&lt;&gt;&quot;&apos;&#65;&#x20AC;</string>"), "<>\"'A\u20AC");
    EXPECT_EQ(value("<key>a&amp;b</key><string>x</string>", "a&b"), "x");
}

TEST(InfoPlist, a_broken_reference_makes_the_value_absent)
{
    for (const char* broken : {"&nothing;", "&", "&#;", "&#x110000;", "&#12a;", "&amp"})
        EXPECT_EQ(value("<key>key</key><string>" + std::string(broken) + "</string>"), std::nullopt) << broken;
}

TEST(InfoPlist, what_is_no_property_list_gives_nothing)
{
    for (const char* text : {"", "<", "<>", "</>", "plain", "bplist00\x01", "<plist", "<!-- never closed",
                             "</dict></dict></dict><key>key</key><string>x</string>"})
        EXPECT_TRUE(InfoPlist::parse(text).isEmpty()) << text;
}

TEST(InfoPlist, a_file_cut_short_gives_what_was_whole)
{
    const auto dictionary = InfoPlist::parse("<plist><dict><key>a</key><string>1</string><key>b</key><string>2");
    EXPECT_EQ(dictionary.string("a"), "1");
    EXPECT_EQ(dictionary.string("b"), std::nullopt);
}

} // namespace
} // namespace haloric
