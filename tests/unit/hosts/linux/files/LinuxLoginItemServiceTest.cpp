#include "hosts/linux/files/LinuxLoginItemService.h"

#include "support/FakeProcesses.h"
#include "unit/hosts/linux/files/UserDefaultsFolder.h"

#include <csignal>

#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace haloric {
namespace {

namespace fs = std::filesystem;

struct LinuxLoginItemServiceTest : testing::Test {
    UserDefaultsFolder folder;
    fs::path autostart = folder.root() / "config" / "autostart";
    fs::path entry = autostart / "com.kestrow.haloric.desktop";
    LinuxLoginItemService service{autostart, "/opt/My Haloric.app/haloric"};
};

TEST_F(LinuxLoginItemServiceTest, it_is_not_registered_at_first)
{
    EXPECT_EQ(service.status(), LoginItemStatus::notRegistered);
    EXPECT_EQ(service.unregisterApplication(), std::nullopt);
}

TEST_F(LinuxLoginItemServiceTest, registering_makes_an_entry_that_starts_the_program)
{
    EXPECT_EQ(service.registerApplication(), std::nullopt);
    EXPECT_EQ(service.status(), LoginItemStatus::enabled);
    EXPECT_THAT(UserDefaultsFolder::contents(entry), testing::HasSubstr("Exec=\"/opt/My Haloric.app/haloric\"\n"));
    EXPECT_EQ(UserDefaultsFolder::names(autostart), std::vector<std::string>{entry.filename().string()});
}

TEST_F(LinuxLoginItemServiceTest, unregistering_takes_the_entry_away)
{
    service.registerApplication();
    EXPECT_EQ(service.unregisterApplication(), std::nullopt);
    EXPECT_EQ(service.status(), LoginItemStatus::notRegistered);
    EXPECT_TRUE(UserDefaultsFolder::names(autostart).empty());
}

TEST_F(LinuxLoginItemServiceTest, an_entry_that_the_desktop_disabled_waits_for_approval_until_it_is_registered_again)
{
    UserDefaultsFolder::write(entry, "[Desktop Entry]\nExec=/opt/haloric\nX-GNOME-Autostart-enabled=false\n");
    EXPECT_EQ(service.status(), LoginItemStatus::requiresApproval);
    EXPECT_EQ(service.registerApplication(), std::nullopt);
    EXPECT_EQ(service.status(), LoginItemStatus::enabled);
}

TEST_F(LinuxLoginItemServiceTest, an_entry_that_starts_nothing_is_not_found)
{
    UserDefaultsFolder::write(entry, "nonsense");
    EXPECT_EQ(service.status(), LoginItemStatus::notFound);
    fs::remove(entry);
    mkfifo(entry.c_str(), 0600);
    EXPECT_EQ(service.status(), LoginItemStatus::notFound);
    fs::remove(entry);
    fs::create_symlink(folder.root() / "gone", entry);
    EXPECT_EQ(service.status(), LoginItemStatus::notFound);
}

TEST_F(LinuxLoginItemServiceTest, a_file_in_the_way_of_the_folder_is_told)
{
    UserDefaultsFolder::write(autostart, "in the way");
    const auto error = service.registerApplication();
    ASSERT_TRUE(error);
    EXPECT_EQ(error->localizedDescription,
              "Haloric will not start at login. Something else is in the way of " + autostart.string() + ".");
    EXPECT_EQ(service.status(), LoginItemStatus::notRegistered);
}

TEST_F(LinuxLoginItemServiceTest, a_folder_in_the_way_of_the_entry_is_told)
{
    fs::create_directories(entry);
    EXPECT_TRUE(service.registerApplication());
    EXPECT_TRUE(service.unregisterApplication());
    EXPECT_EQ(UserDefaultsFolder::names(autostart), std::vector<std::string>{entry.filename().string()});
}

TEST_F(LinuxLoginItemServiceTest, a_disk_without_room_is_told_and_the_entry_stays_as_it_was)
{
    UserDefaultsFolder::write(entry, "[Desktop Entry]\nExec=/opt/old\nHidden=true\n");
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit little{10, before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &little);
    const auto error = service.registerApplication();
    setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    ASSERT_TRUE(error);
    EXPECT_THAT(error->localizedDescription, testing::HasSubstr("no room"));
    EXPECT_EQ(service.status(), LoginItemStatus::requiresApproval);
    EXPECT_EQ(UserDefaultsFolder::names(autostart).size(), 1U);
}

TEST_F(LinuxLoginItemServiceTest, a_folder_that_may_not_be_changed_is_told)
{
    service.registerApplication();
    // In a process of its own, because the one that runs the tests may be allowed everything.
    const pid_t child = fork();
    if (child == 0) {
        chmod(folder.root().c_str(), 0755);
        chmod(autostart.parent_path().c_str(), 0755);
        chmod(autostart.c_str(), 0555);
        if (geteuid() == 0 && setuid(65534) != 0)
            _exit(1);
        const auto registering = service.registerApplication();
        const auto unregistering = service.unregisterApplication();
        const std::string words = "The folder " + autostart.string() + " cannot be changed.";
        const bool told = registering && unregistering &&
                          registering->localizedDescription == "Haloric will not start at login. " + words &&
                          unregistering->localizedDescription == "Haloric will still start at login. " + words &&
                          !registering->localizedRecoverySuggestion.empty();
        _exit(told ? 0 : 2);
    }
    int status = -1;
    waitpid(child, &status, 0);
    chmod(autostart.c_str(), 0700);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(service.status(), LoginItemStatus::enabled);
}

TEST_F(LinuxLoginItemServiceTest, the_folder_follows_the_environment)
{
    FakeProcesses processes;
    processes.environment = {{"HOME", "/users/me"}};
    EXPECT_EQ(LinuxLoginItemService::standardFolder(processes), "/users/me/.config/autostart");
    processes.environment["XDG_CONFIG_HOME"] = "/elsewhere";
    EXPECT_EQ(LinuxLoginItemService::standardFolder(processes), "/elsewhere/autostart");
    processes.environment = {};
    EXPECT_EQ(LinuxLoginItemService::standardFolder(processes), "");
}

TEST(LinuxLoginItemService, without_a_folder_it_says_why_it_cannot_register)
{
    LinuxLoginItemService service({}, "/opt/haloric");
    EXPECT_EQ(service.status(), LoginItemStatus::notRegistered);
    ASSERT_TRUE(service.registerApplication());
    EXPECT_THAT(service.registerApplication()->localizedDescription, testing::HasSubstr("HOME"));
    EXPECT_EQ(service.unregisterApplication(), std::nullopt);
}

} // namespace
} // namespace haloric
