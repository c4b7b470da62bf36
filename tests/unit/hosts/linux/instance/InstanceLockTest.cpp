#include "hosts/linux/instance/InstanceLock.h"

#include "fakes/FakeProcesses.h"
#include "testing/x11/TemporaryFolder.h"
#include "unit/hosts/linux/instance/InstanceFolder.h"

#include <atomic>
#include <latch>
#include <optional>
#include <set>
#include <thread>
#include <vector>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace haloric {
namespace {

using State = InstanceLock::State;

struct InstanceLockTest : testing::Test, InstanceFolder {};

TEST_F(InstanceLockTest, the_first_lock_is_taken_and_its_socket_accepts_connections)
{
    const InstanceLock lock(paths);
    EXPECT_EQ(lock.state(), State::taken);
    EXPECT_TRUE(connected().isOpen());
    struct stat status {};
    ASSERT_EQ(stat(paths.socket.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0600U);
}

TEST_F(InstanceLockTest, a_second_lock_is_occupied_and_the_first_keeps_its_socket)
{
    const InstanceLock first(paths);
    {
        const InstanceLock second(paths);
        EXPECT_EQ(second.state(), State::occupied);
        EXPECT_EQ(second.listeningDescriptor(), -1);
    }
    EXPECT_TRUE(connected().isOpen());
}

TEST_F(InstanceLockTest, destroying_the_lock_releases_it)
{
    std::optional<InstanceLock> first(paths);
    first.reset();
    EXPECT_FALSE(connected().isOpen());
    EXPECT_EQ(InstanceLock(paths).state(), State::taken);
}

TEST_F(InstanceLockTest, a_killed_holder_leaves_no_obstacle)
{
    const pid_t child = fork();
    if (child == 0) {
        const InstanceLock lock(paths);
        _exit(lock.state() == State::taken ? 0 : 1); // no destructor runs
    }
    int status = -1;
    waitpid(child, &status, 0);
    ASSERT_EQ(status, 0);
    ASSERT_TRUE(std::filesystem::exists(paths.socket));
    const InstanceLock lock(paths);
    EXPECT_EQ(lock.state(), State::taken);
    EXPECT_TRUE(connected().isOpen());
}

TEST_F(InstanceLockTest, one_of_many_concurrent_starts_takes_the_lock)
{
    constexpr int kStarts = 8;
    std::latch start(kStarts);
    std::latch allTried(kStarts);
    std::atomic<int> taken = 0;
    std::atomic<int> occupied = 0;
    std::vector<std::thread> threads;
    for (int index = 0; index < kStarts; ++index) {
        threads.emplace_back([&] {
            start.arrive_and_wait();
            const InstanceLock lock(paths);
            taken += lock.state() == State::taken ? 1 : 0;
            occupied += lock.state() == State::occupied ? 1 : 0;
            allTried.arrive_and_wait();
        });
    }
    for (auto& thread : threads)
        thread.join();
    EXPECT_EQ(taken, 1);
    EXPECT_EQ(occupied, kStarts - 1);
}

TEST_F(InstanceLockTest, unusable_paths_make_the_lock_unavailable)
{
    EXPECT_EQ(InstanceLock({folder.path() / "gone" / "s", folder.path() / "gone" / "l"}).state(), State::unavailable);
    const std::string tooLong(150, 'x');
    EXPECT_EQ(InstanceLock({folder.path() / tooLong, paths.lock}).state(), State::unavailable);
    std::filesystem::remove(paths.lock);
    std::filesystem::create_symlink("/dev/null", paths.lock);
    EXPECT_EQ(InstanceLock(paths).state(), State::unavailable);
}

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
        const auto paths = InstancePaths::find(processes, display, fallback);
        return paths ? paths->socket.parent_path() : fs::path();
    }
    std::string nameFor(std::string_view display) const
    {
        return InstancePaths::find(processes, display, fallback)->socket.filename().string();
    }
};

TEST_F(InstancePathsTest, the_files_are_in_the_users_runtime_folder)
{
    const auto paths = InstancePaths::find(processes, ":0", fallback);
    ASSERT_TRUE(paths);
    EXPECT_EQ(paths->socket.parent_path(), runtime);
    EXPECT_EQ(paths->lock.parent_path(), runtime);
    EXPECT_NE(paths->socket, paths->lock);
    EXPECT_FALSE(fs::exists(ownFolder));
}

TEST_F(InstancePathsTest, each_display_has_its_own_files_and_its_screens_share_them)
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

TEST_F(InstancePathsTest, without_a_runtime_folder_a_private_one_is_created)
{
    for (const char* value : {"", "relative", "/nonexistent/folder"}) {
        processes.environment["XDG_RUNTIME_DIR"] = value;
        EXPECT_EQ(folderFor(), ownFolder) << value;
    }
    EXPECT_EQ(fs::status(ownFolder).permissions(), fs::perms::owner_all);
    EXPECT_EQ(folderFor(), ownFolder) << "it exists already";
}

TEST_F(InstancePathsTest, a_runtime_folder_that_others_may_write_to_is_not_used)
{
    chmod(runtime.c_str(), 0770);
    EXPECT_EQ(folderFor(), ownFolder);
    chmod(runtime.c_str(), 0702);
    EXPECT_EQ(folderFor(), ownFolder);
}

TEST_F(InstancePathsTest, a_link_or_an_open_folder_in_place_of_the_private_one_is_not_used)
{
    processes.environment.clear();
    fs::create_directory_symlink(runtime, ownFolder); // a link that another user could have created
    EXPECT_EQ(folderFor(), fs::path());
    fs::remove(ownFolder);
    fs::create_directory(ownFolder);
    chmod(ownFolder.c_str(), 0777);
    EXPECT_EQ(folderFor(), fs::path());
}

TEST_F(InstancePathsTest, an_empty_display_has_no_files) { EXPECT_EQ(folderFor(""), fs::path()); }

} // namespace
} // namespace haloric
