#include "hosts/linux/instance/InstancePaths.h"

#include "support/FakeProcesses.h"
#include "testing/x11/TemporaryFolder.h"

#include <set>

#include <sys/stat.h>
#include <unistd.h>

namespace haloric {
namespace {

namespace fs = std::filesystem;

struct InstancePathsTest : testing::Test {
    TemporaryFolder folder;
    fs::path runtime = folder.makeFolder("runtime");
    fs::path fallback = folder.makeFolder("tmp");
    fs::path ownFolder = fallback / ("com.kestrow.haloric-" + std::to_string(geteuid()));
    FakeProcesses processes;

    InstancePathsTest() { processes.environment["XDG_RUNTIME_DIR"] = runtime.string(); }
    fs::path folderFor(std::string_view display = ":0") const
    {
        const auto place = InstancePaths::find(processes, display, fallback);
        return place ? place->socket.parent_path() : fs::path();
    }
    std::string nameFor(std::string_view display) const
    {
        return InstancePaths::find(processes, display, fallback)->socket.filename().string();
    }
};

TEST_F(InstancePathsTest, it_is_in_the_users_runtime_folder)
{
    const auto place = InstancePaths::find(processes, ":0", fallback);
    ASSERT_TRUE(place);
    EXPECT_EQ(place->socket.parent_path(), runtime);
    EXPECT_EQ(place->lock.parent_path(), runtime);
    EXPECT_NE(place->socket, place->lock);
    EXPECT_FALSE(fs::exists(ownFolder));
}

TEST_F(InstancePathsTest, each_display_has_its_own_and_its_screens_share_it)
{
    EXPECT_EQ(nameFor(":0"), nameFor(":0.0"));
    EXPECT_EQ(nameFor(":0"), nameFor(":0.1"));
    EXPECT_EQ(nameFor("host.example.org:10"), nameFor("host.example.org:10.0"));
    const std::set<std::string> names{
        nameFor(":0"),    nameFor(":1"),    nameFor(":10"),      nameFor("unix:0"),
        nameFor("a/b:0"), nameFor("a_b:0"), nameFor("a_2f_b:0"), nameFor("host.example.org:10")};
    EXPECT_EQ(names.size(), 8U);
    for (const std::string& name : names)
        EXPECT_EQ(name.find('/'), std::string::npos);
}

TEST_F(InstancePathsTest, without_a_runtime_folder_it_makes_one_for_the_user_alone)
{
    for (const char* value : {"", "relative", "/nonexistent/folder"}) {
        processes.environment["XDG_RUNTIME_DIR"] = value;
        EXPECT_EQ(folderFor(), ownFolder) << value;
    }
    EXPECT_EQ(fs::status(ownFolder).permissions(), fs::perms::owner_all);
    EXPECT_EQ(folderFor(), ownFolder) << "it is there already";
}

TEST_F(InstancePathsTest, a_runtime_folder_that_others_may_write_to_is_not_used)
{
    chmod(runtime.c_str(), 0770);
    EXPECT_EQ(folderFor(), ownFolder);
    chmod(runtime.c_str(), 0702);
    EXPECT_EQ(folderFor(), ownFolder);
}

TEST_F(InstancePathsTest, something_else_in_place_of_the_own_folder_is_not_used)
{
    processes.environment.clear();
    fs::create_directory_symlink(runtime, ownFolder); // a link, as somebody might have laid it
    EXPECT_EQ(folderFor(), fs::path());
    fs::remove(ownFolder);
    fs::create_directory(ownFolder);
    chmod(ownFolder.c_str(), 0777);
    EXPECT_EQ(folderFor(), fs::path());
}

TEST_F(InstancePathsTest, a_display_without_a_name_has_none) { EXPECT_EQ(folderFor(""), fs::path()); }

} // namespace
} // namespace haloric
