// Full disks, read-only folders, links, and files of other kinds.
#include "hosts/linux/files/LinuxUserDefaults.h"

#include "fakes/FakeLog.h"
#include "unit/hosts/linux/files/UserDefaultsFolder.h"

#include <csignal>
#include <string>

#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace haloric {
namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

class LinuxUserDefaultsTroubleTest : public testing::Test {
protected:
    static constexpr const char* kKey = UserDefaultsFolder::kKey;

    UserDefaultsFolder folder;
    FakeLog log;
    LinuxUserDefaults defaults{folder.path().string(), &log};

    // The line for a file that is there and is not read.
    std::string unread(const std::string& reason) const
    {
        return "haloric: " + folder.file().string() + " " + reason + "; it is not read";
    }
    bool isPipe() const { return fs::symlink_status(folder.file()).type() == fs::file_type::fifo; }
};

TEST_F(LinuxUserDefaultsTroubleTest, a_full_disk_keeps_the_old_value_and_leaves_no_temporary_file)
{
    defaults.setData(kKey, "old");
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    for (const rlim_t room : {rlim_t{0}, rlim_t{1000}}) {
        const rlimit little{room, before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &little);
        const auto error = defaults.setData(kKey, std::string(5000, 'n'));
        setrlimit(RLIMIT_FSIZE, &before);
        ASSERT_TRUE(error.has_value());
        EXPECT_EQ(error->localizedDescription, "The disk has no room left for " + folder.path().string() + ".");
        EXPECT_EQ(defaults.data(kKey), "old");
        EXPECT_EQ(folder.names(), Names{kKey});
    }
    std::signal(SIGXFSZ, handler);
    EXPECT_FALSE(defaults.setData(kKey, "new").has_value());
    EXPECT_EQ(defaults.data(kKey), "new");
}

TEST_F(LinuxUserDefaultsTroubleTest, without_a_folder_that_can_be_created_nothing_is_stored)
{
    UserDefaultsFolder::write(folder.path().parent_path(), "a file in the way");
    const auto error = defaults.setData(kKey, "x");
    ASSERT_TRUE(error.has_value());
    EXPECT_EQ(error->localizedDescription, "Something else is in the way of " + folder.path().string() + ".");
    EXPECT_FALSE(defaults.data(kKey).has_value());
    EXPECT_TRUE(log.lines.empty());
}

TEST_F(LinuxUserDefaultsTroubleTest, a_folder_that_cannot_be_written_keeps_the_old_value)
{
    defaults.setData(kKey, "old");
    // In a child process without root's rights, because root may write everywhere.
    const pid_t child = fork();
    if (child == 0) {
        chmod(folder.root().c_str(), 0755);
        chmod(folder.path().parent_path().c_str(), 0755);
        chmod(folder.path().c_str(), 0555);
        if (geteuid() == 0 && setuid(65534) != 0)
            _exit(1);
        const auto error = LinuxUserDefaults(folder.path().string()).setData(kKey, "new");
        const bool isReported = error && error->localizedRecoverySuggestion == "Make it writable, then try again.";
        _exit(access(folder.path().c_str(), W_OK) == 0 ? 2 : isReported ? 0 : 3);
    }
    int status = -1;
    waitpid(child, &status, 0);
    chmod(folder.path().c_str(), 0700);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(defaults.data(kKey), "old");
    EXPECT_EQ(folder.names(), Names{kKey});
}

TEST_F(LinuxUserDefaultsTroubleTest, a_pipe_is_neither_read_nor_replaced)
{
    fs::create_directories(folder.path());
    mkfifo(folder.file().c_str(), 0600);
    EXPECT_FALSE(defaults.data(kKey).has_value());
    const auto error = defaults.setData(kKey, "x");
    ASSERT_TRUE(error.has_value());
    EXPECT_EQ(error->localizedDescription, folder.file().string() + " is no ordinary file.");
    EXPECT_EQ(error->localizedRecoverySuggestion, "Move it away, then try again.");
    EXPECT_TRUE(isPipe());
    EXPECT_EQ(folder.names(), Names{kKey});
    EXPECT_EQ(log.lines, Names{unread("is no ordinary file")});
}

TEST_F(LinuxUserDefaultsTroubleTest, a_folder_in_place_of_the_file_is_neither_read_nor_replaced)
{
    fs::create_directories(folder.file());
    EXPECT_FALSE(defaults.data(kKey).has_value());
    EXPECT_TRUE(defaults.setData(kKey, "x").has_value());
    EXPECT_TRUE(fs::is_directory(folder.file()));
    EXPECT_EQ(folder.names(), Names{kKey});
}

TEST_F(LinuxUserDefaultsTroubleTest, a_link_to_a_device_or_a_pipe_stays_and_so_does_its_target)
{
    fs::create_directories(folder.path());
    const fs::path pipe = folder.root() / "pipe";
    mkfifo(pipe.c_str(), 0600);
    for (const fs::path& target : {fs::path("/dev/null"), pipe}) {
        fs::remove(folder.file());
        fs::create_symlink(target, folder.file());
        log.lines.clear();
        EXPECT_FALSE(defaults.data(kKey).has_value());
        const auto error = defaults.setData(kKey, "x");
        ASSERT_TRUE(error.has_value()) << target;
        EXPECT_EQ(error->localizedDescription, folder.file().string() + " is a link to what is no ordinary file.");
        EXPECT_EQ(fs::read_symlink(folder.file()), target);
        EXPECT_EQ(log.lines, Names{unread("is a link to what is no ordinary file")});
    }
    EXPECT_TRUE(fs::is_fifo(pipe));
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

TEST_F(LinuxUserDefaultsTroubleTest, a_file_that_is_too_large_is_absent_and_stays)
{
    UserDefaultsFolder::write(folder.file(), "");
    fs::resize_file(folder.file(), std::uintmax_t{1} << 40); // a sparse file
    EXPECT_FALSE(defaults.data(kKey).has_value());
    UserDefaultsFolder::write(folder.file(), std::string(LinuxUserDefaults::kMaximumSize + 1, ' '));
    EXPECT_FALSE(defaults.data(kKey).has_value());
    EXPECT_EQ(fs::file_size(folder.file()), LinuxUserDefaults::kMaximumSize + 1);
    EXPECT_EQ(log.lines, Names(2, unread("is larger than 1 MiB")));
    UserDefaultsFolder::write(folder.file(), std::string(LinuxUserDefaults::kMaximumSize, ' '));
    EXPECT_TRUE(defaults.data(kKey).has_value());
}

TEST_F(LinuxUserDefaultsTroubleTest, a_file_of_nested_brackets_is_absent_and_stays)
{
    const std::string bad = std::string(65, '[') + std::string(65, ']');
    UserDefaultsFolder::write(folder.file(), bad);
    EXPECT_FALSE(defaults.data(kKey).has_value());
    EXPECT_EQ(UserDefaultsFolder::contents(folder.file()), bad);
    EXPECT_EQ(log.lines, Names{unread("is nested more than 64 levels deep")});
    UserDefaultsFolder::write(folder.file(), bad.substr(1, 128));
    EXPECT_TRUE(defaults.data(kKey).has_value());
}

TEST_F(LinuxUserDefaultsTroubleTest, a_missing_file_is_not_reported)
{
    EXPECT_FALSE(defaults.data(kKey).has_value());
    EXPECT_TRUE(log.lines.empty());
}

TEST_F(LinuxUserDefaultsTroubleTest, a_symbolic_link_stays_and_its_target_is_replaced)
{
    const fs::path real = folder.root() / "dotfiles" / "haloric.json";
    UserDefaultsFolder::write(real, "old");
    fs::create_directories(folder.path());
    fs::create_symlink("../../dotfiles/haloric.json", folder.file());
    EXPECT_EQ(defaults.data(kKey), "old");
    defaults.setData(kKey, "new");
    EXPECT_TRUE(fs::is_symlink(folder.file()));
    EXPECT_EQ(UserDefaultsFolder::contents(real), "new");
    EXPECT_EQ(UserDefaultsFolder::names(real.parent_path()), Names{"haloric.json"});
    EXPECT_EQ(folder.names(), Names{kKey});
}

TEST_F(LinuxUserDefaultsTroubleTest, a_link_that_leads_nowhere_stays)
{
    fs::create_directories(folder.path());
    for (const fs::path& goal : {folder.root() / "gone", folder.file()}) {
        fs::remove(folder.file());
        fs::create_symlink(goal, folder.file());
        log.lines.clear();
        EXPECT_FALSE(defaults.data(kKey).has_value());
        EXPECT_EQ(log.lines, Names{unread("is a link that leads nowhere")});
        EXPECT_TRUE(defaults.setData(kKey, "new").has_value());
        EXPECT_EQ(fs::read_symlink(folder.file()), goal);
        EXPECT_FALSE(fs::exists(folder.root() / "gone"));
    }
}

TEST_F(LinuxUserDefaultsTroubleTest, only_temporary_files_of_killed_processes_are_removed)
{
    const pid_t gone = fork();
    if (gone == 0)
        _exit(0);
    waitpid(gone, nullptr, 0);
    const std::string prefix = "." + std::string(kKey) + ".";
    const std::string ofGone = prefix + std::to_string(gone) + ".tmp";
    const std::string ofRunning = prefix + std::to_string(getppid()) + ".tmp";
    const std::string ofThisNumber = prefix + std::to_string(getpid()) + ".tmp";
    const std::string foreign = prefix + "backup.tmp";
    const std::string otherKey = ".Other." + std::to_string(gone) + ".tmp";
    for (const std::string& name :
         {ofGone, ofRunning, ofThisNumber, foreign, otherKey, prefix + "tmp", prefix + ".tmp"})
        UserDefaultsFolder::write(folder.path() / name, "half");
    defaults.setData(kKey, "new");
    Names expected{ofRunning, foreign, otherKey, prefix + "tmp", prefix + ".tmp", kKey};
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(folder.names(), expected);
    EXPECT_EQ(defaults.data(kKey), "new");
}

TEST_F(LinuxUserDefaultsTroubleTest, a_temporary_file_of_another_users_process_stays)
{
    const std::string ofFirst = "." + std::string(kKey) + ".1.tmp"; // of a process that runs and belongs to root
    defaults.setData(kKey, "old");
    UserDefaultsFolder::write(folder.path() / ofFirst, "half");
    const pid_t child = fork();
    if (child == 0) {
        for (fs::path path = folder.path(); path != folder.root().parent_path(); path = path.parent_path())
            chmod(path.c_str(), 0777);
        if (geteuid() == 0 && setuid(65534) != 0)
            _exit(1);
        LinuxUserDefaults(folder.path().string()).setData(kKey, "new");
        _exit(0);
    }
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(defaults.data(kKey), "new");
    EXPECT_EQ(folder.names(), (Names{ofFirst, kKey}));
}

TEST_F(LinuxUserDefaultsTroubleTest, a_file_that_cannot_be_read_to_its_end_is_absent)
{
    fs::create_directories(folder.path());
    fs::create_symlink("/proc/self/mem", folder.file()); // an ordinary file of which the first page cannot be read
    EXPECT_FALSE(defaults.data(kKey).has_value());
}

TEST_F(LinuxUserDefaultsTroubleTest, a_link_in_place_of_the_temporary_file_is_not_followed)
{
    const fs::path victim = folder.root() / "victim";
    UserDefaultsFolder::write(victim, "untouched");
    fs::create_directories(folder.path());
    fs::create_symlink(victim, folder.path() / ("." + std::string(kKey) + "." + std::to_string(getpid()) + ".tmp"));
    defaults.setData(kKey, "new");
    EXPECT_EQ(UserDefaultsFolder::contents(victim), "untouched");
    EXPECT_EQ(folder.names(), Names{kKey});
}

} // namespace
} // namespace haloric
