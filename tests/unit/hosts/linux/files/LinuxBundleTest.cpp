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

TEST_F(LinuxBundleTest, a_program_in_a_bundle_tells_the_bundle_and_its_dictionary)
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

TEST_F(LinuxBundleTest, it_is_opened_by_its_program_whatever_the_path)
{
    const auto program = folder / "it's a \"b\"" / "haloric";
    std::filesystem::create_directories(program.parent_path());
    std::ofstream(program) << "#!/bin/sh\nprintf '%s' \"$#\" > \"$0.ran\"\n";
    std::filesystem::permissions(program, std::filesystem::perms::owner_all);
    const LinuxBundle bundle(program);
    ASSERT_EQ(std::system((bundle.openCommand() + " \"" + bundle.path() + "\"").c_str()), 0);
    std::string argumentCount;
    std::getline(std::ifstream(program.string() + ".ran"), argumentCount);
    EXPECT_EQ(argumentCount, "0");
}

TEST_F(LinuxBundleTest, outside_a_bundle_it_is_the_programs_folder_and_no_dictionary_counts)
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

TEST(LinuxBundle, the_running_program_knows_its_folder)
{
    EXPECT_EQ(LinuxBundle().path(), std::filesystem::read_symlink("/proc/self/exe").parent_path().string());
}

} // namespace
} // namespace haloric
