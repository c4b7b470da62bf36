#include "hosts/linux/files/LinuxUserDefaults.h"

#include "fakes/FakeProcesses.h"
#include "unit/hosts/linux/files/UserDefaultsFolder.h"

#include <string>

#include <sys/stat.h>

namespace haloric {
namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

class LinuxUserDefaultsTest : public testing::Test {
protected:
    static constexpr const char* kKey = UserDefaultsFolder::kKey;

    static unsigned modeOf(const fs::path& path)
    {
        struct stat status {};
        stat(path.c_str(), &status);
        return status.st_mode & 07777U;
    }

    UserDefaultsFolder folder;
    LinuxUserDefaults defaults{folder.path().string()};
};

TEST_F(LinuxUserDefaultsTest, a_missing_value_is_absent_and_creates_no_folder)
{
    EXPECT_FALSE(defaults.data(kKey).has_value());
    EXPECT_FALSE(fs::exists(folder.path()));
}

TEST_F(LinuxUserDefaultsTest, a_value_is_a_private_file_named_like_its_key)
{
    const std::string bytes("a\0b\n\xff", 5);
    const mode_t before = umask(0);
    defaults.setData(kKey, bytes);
    umask(before);
    EXPECT_EQ(defaults.data(kKey), bytes);
    EXPECT_EQ(UserDefaultsFolder::contents(folder.file()), bytes);
    EXPECT_EQ(folder.names(), Names{kKey});
    EXPECT_EQ(modeOf(folder.file()), 0600U);
    EXPECT_EQ(modeOf(folder.path()), 0700U);
    EXPECT_EQ(modeOf(folder.path().parent_path()), 0700U);
}

TEST_F(LinuxUserDefaultsTest, an_existing_folder_keeps_its_mode)
{
    fs::create_directories(folder.path());
    chmod(folder.path().c_str(), 0755);
    defaults.setData(kKey, "x");
    EXPECT_EQ(modeOf(folder.path()), 0755U);
}

TEST_F(LinuxUserDefaultsTest, the_next_value_replaces_the_file_and_makes_it_private)
{
    UserDefaultsFolder::write(folder.file(), "the old and longer value");
    chmod(folder.file().c_str(), 0644);
    defaults.setData(kKey, "new");
    EXPECT_EQ(defaults.data(kKey), "new");
    EXPECT_EQ(modeOf(folder.file()), 0600U);
    defaults.setData(kKey, "");
    EXPECT_EQ(defaults.data(kKey), "");
}

TEST_F(LinuxUserDefaultsTest, an_open_file_keeps_the_old_value)
{
    UserDefaultsFolder::write(folder.file(), "old");
    std::ifstream reader(folder.file());
    defaults.setData(kKey, "new");
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(reader), {}), "old");
}

TEST_F(LinuxUserDefaultsTest, keys_are_independent_and_stay_inside_the_folder)
{
    defaults.setData(kKey, "1");
    defaults.setData("Other", "2");
    for (const std::string_view key : {"", ".", "..", "../out", "a/b", "/tmp/out"}) {
        defaults.setData(key, "3");
        EXPECT_FALSE(defaults.data(key).has_value()) << key;
    }
    EXPECT_EQ(folder.names(), (Names{kKey, "Other"}));
    EXPECT_EQ(UserDefaultsFolder::names(folder.root()), Names{"config"});
    EXPECT_EQ(defaults.data(kKey), "1");
    EXPECT_EQ(defaults.data("Other"), "2");
}

TEST(LinuxUserDefaults, the_folder_is_in_the_users_configuration)
{
    FakeProcesses processes;
    EXPECT_EQ(LinuxUserDefaults::standardFolder(processes), "");
    processes.environment["HOME"] = "/homes/me";
    EXPECT_EQ(LinuxUserDefaults::standardFolder(processes), "/homes/me/.config/com.kestrow.haloric");
    for (const char* unusable : {"", "relative/path"}) {
        processes.environment["XDG_CONFIG_HOME"] = unusable;
        EXPECT_EQ(LinuxUserDefaults::standardFolder(processes), "/homes/me/.config/com.kestrow.haloric");
    }
    processes.environment["XDG_CONFIG_HOME"] = "/config";
    EXPECT_EQ(LinuxUserDefaults::standardFolder(processes), "/config/com.kestrow.haloric");
    processes.environment = {{"HOME", "relative"}};
    EXPECT_EQ(LinuxUserDefaults::standardFolder(processes), "");
}

TEST(LinuxUserDefaults, without_a_folder_nothing_is_stored)
{
    LinuxUserDefaults defaults{""};
    const auto error = defaults.setData("Haloric.settings.v1", "x");
    ASSERT_TRUE(error.has_value());
    EXPECT_EQ(error->localizedDescription, "Neither XDG_CONFIG_HOME nor HOME names a folder.");
    EXPECT_FALSE(defaults.data("Haloric.settings.v1").has_value());
    EXPECT_FALSE(fs::exists("/Haloric.settings.v1"));
}

} // namespace
} // namespace haloric
