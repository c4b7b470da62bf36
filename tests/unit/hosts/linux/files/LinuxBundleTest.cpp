#include "hosts/linux/files/LinuxBundle.h"

#include <cstdlib>
#include <fstream>

namespace haloric {
namespace {

struct LinuxBundleTest : testing::Test {
    std::filesystem::path folder;

    LinuxBundleTest()
    {
        std::string name = testing::TempDir() + "haloric-bundle-XXXXXX";
        folder = mkdtemp(name.data());
    }
    ~LinuxBundleTest() override { std::filesystem::remove_all(folder); }

    std::filesystem::path makeBundle(const std::string& plist) const
    {
        const auto bundle = folder / "My Haloric.app";
        std::filesystem::create_directories(bundle / "bin");
        std::ofstream(bundle / "Info.plist") << plist;
        return bundle;
    }
};

constexpr const char* kPlist = "<plist><dict><key>SUFeedURL</key><string>https://a/b</string></dict></plist>";

TEST_F(LinuxBundleTest, a_program_in_a_bundle_has_its_path_and_dictionary)
{
    const auto bundlePath = makeBundle(kPlist);
    const LinuxBundle bundle(bundlePath / "haloric");
    EXPECT_EQ(bundle.path(), bundlePath.string());
    EXPECT_EQ(bundle.infoString("SUFeedURL"), "https://a/b");
    EXPECT_EQ(bundle.infoString("Other"), std::nullopt);
}

TEST_F(LinuxBundleTest, a_program_deeper_in_a_bundle_finds_it)
{
    EXPECT_EQ(LinuxBundle(makeBundle(kPlist) / "bin" / "haloric").path(), (folder / "My Haloric.app").string());
}

TEST_F(LinuxBundleTest, the_relaunch_command_starts_its_executable_whatever_the_path)
{
    const auto program = folder / "it's a \"b\"" / "haloric";
    std::filesystem::create_directories(program.parent_path());
    std::ofstream(program) << "#!/bin/sh\nprintf '%s' \"$#\" > \"$0.ran\"\n";
    std::filesystem::permissions(program, std::filesystem::perms::owner_all);
    const LinuxBundle bundle(program);
    ASSERT_EQ(std::system(bundle.relaunchCommand().c_str()), 0);
    std::string argumentCount;
    std::getline(std::ifstream(program.string() + ".ran"), argumentCount);
    EXPECT_EQ(argumentCount, "0");
}

TEST_F(LinuxBundleTest, outside_a_bundle_the_path_is_the_programs_folder_and_the_dictionary_is_ignored)
{
    std::ofstream(folder / "Info.plist") << kPlist;
    const LinuxBundle bundle(folder / "haloric");
    EXPECT_EQ(bundle.path(), folder.string());
    EXPECT_EQ(bundle.infoString("SUFeedURL"), std::nullopt);
}

TEST_F(LinuxBundleTest, a_bundle_without_a_dictionary_has_no_values)
{
    std::filesystem::create_directories(folder / "Bare.app");
    const LinuxBundle bundle(folder / "Bare.app" / "haloric");
    EXPECT_EQ(bundle.infoString("SUFeedURL"), std::nullopt);
}

TEST(LinuxBundle, the_running_programs_folder_is_found)
{
    EXPECT_EQ(LinuxBundle().path(), std::filesystem::read_symlink("/proc/self/exe").parent_path().string());
}

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

TEST(InfoPlist, values_that_are_not_text_are_skipped)
{
    EXPECT_EQ(value("<key>key</key><integer>4</integer>"), std::nullopt);
    EXPECT_EQ(value("<key>other</key><integer>4</integer><key>key</key><string>a</string>"), "a");
    EXPECT_EQ(value("<key>other</key><true/><string>stray</string>"), std::nullopt);
}

TEST(InfoPlist, numbers_and_booleans_are_read)
{
    const auto dictionary = InfoPlist::parse(
        "<plist><dict><key>on</key><true/><key>off</key><false/><key>whole</key><integer>3600</integer><key>part</key>"
        "<real>1.5</real><key>text</key><string>7</string><key>bad</key><integer>7x</integer><key>endless</key>"
        "<real>inf</real></dict></plist>");
    EXPECT_EQ(dictionary.number("on"), 1);
    EXPECT_EQ(dictionary.number("off"), 0);
    EXPECT_EQ(dictionary.number("whole"), 3600);
    EXPECT_EQ(dictionary.number("part"), 1.5);
    for (const char* key : {"text", "bad", "endless", "missing"})
        EXPECT_EQ(dictionary.number(key), std::nullopt) << key;
}

TEST(InfoPlist, inner_dictionaries_and_lists_are_ignored)
{
    EXPECT_EQ(value("<key>a</key><dict><key>key</key><string>inner</string></dict>"), std::nullopt);
    EXPECT_EQ(value("<key>key</key><array><string>inner</string></array>"), std::nullopt);
    EXPECT_EQ(value("<key>a</key><dict><key>key</key><string>inner</string></dict><key>key</key><string>b</string>"),
              "b");
}

TEST(InfoPlist, the_first_of_equal_keys_wins)
{
    EXPECT_EQ(value("<key>key</key><string>a</string><key>key</key><string>b</string>"), "a");
}

TEST(InfoPlist, an_empty_text_is_a_value)
{
    EXPECT_EQ(value("<key>key</key><string></string>"), "");
    EXPECT_EQ(value("<key>key</key><string/>"), "");
}

TEST(InfoPlist, character_references_are_resolved)
{
    EXPECT_EQ(value("<key>key</key><string>&lt;&gt;&quot;&apos;&#65;&#x20AC;</string>"), "<>\"'A\u20AC");
    EXPECT_EQ(value("<key>a&amp;b</key><string>x</string>", "a&b"), "x");
}

TEST(InfoPlist, a_broken_reference_makes_the_value_absent)
{
    for (const char* broken : {"&nothing;", "&", "&#;", "&#x110000;", "&#12a;", "&amp"})
        EXPECT_EQ(value("<key>key</key><string>" + std::string(broken) + "</string>"), std::nullopt) << broken;
}

TEST(InfoPlist, a_text_that_is_not_a_property_list_has_no_values)
{
    for (const char* text : {"", "<", "<>", "</>", "plain", "bplist00\x01", "<plist", "<!-- never closed",
                             "</dict></dict></dict><key>key</key><string>x</string>"})
        EXPECT_TRUE(InfoPlist::parse(text).isEmpty()) << text;
}

TEST(InfoPlist, a_truncated_file_has_its_complete_values)
{
    const auto dictionary = InfoPlist::parse("<plist><dict><key>a</key><string>1</string><key>b</key><string>2");
    EXPECT_EQ(dictionary.string("a"), "1");
    EXPECT_EQ(dictionary.string("b"), std::nullopt);
}

} // namespace
} // namespace haloric
