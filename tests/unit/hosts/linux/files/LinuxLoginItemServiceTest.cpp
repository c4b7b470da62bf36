#include "hosts/linux/files/LinuxLoginItemService.h"

#include "fakes/FakeProcesses.h"
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

TEST_F(LinuxLoginItemServiceTest, unregistering_removes_the_entry)
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

TEST_F(LinuxLoginItemServiceTest, a_file_in_place_of_the_folder_is_reported)
{
    UserDefaultsFolder::write(autostart, "in the way");
    const auto error = service.registerApplication();
    ASSERT_TRUE(error);
    EXPECT_EQ(error->localizedDescription,
              "Haloric will not start at login. Something else is in the way of " + autostart.string() + ".");
    EXPECT_EQ(service.status(), LoginItemStatus::notRegistered);
}

TEST_F(LinuxLoginItemServiceTest, a_folder_in_place_of_the_entry_is_reported)
{
    fs::create_directories(entry);
    EXPECT_TRUE(service.registerApplication());
    EXPECT_TRUE(service.unregisterApplication());
    EXPECT_EQ(UserDefaultsFolder::names(autostart), std::vector<std::string>{entry.filename().string()});
}

TEST_F(LinuxLoginItemServiceTest, a_full_disk_is_reported_and_the_entry_stays_unchanged)
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

TEST_F(LinuxLoginItemServiceTest, a_read_only_folder_is_reported)
{
    service.registerApplication();
    // In a child process without root's rights, because root may write everywhere.
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
        const bool isReported = registering && unregistering &&
                                registering->localizedDescription == "Haloric will not start at login. " + words &&
                                unregistering->localizedDescription == "Haloric will still start at login. " + words &&
                                !registering->localizedRecoverySuggestion.empty();
        _exit(isReported ? 0 : 2);
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

TEST(LinuxLoginItemService, without_a_folder_registering_fails_with_the_reason)
{
    LinuxLoginItemService service({}, "/opt/haloric");
    EXPECT_EQ(service.status(), LoginItemStatus::notRegistered);
    ASSERT_TRUE(service.registerApplication());
    EXPECT_THAT(service.registerApplication()->localizedDescription, testing::HasSubstr("HOME"));
    EXPECT_EQ(service.unregisterApplication(), std::nullopt);
}

using State = AutostartEntry::State;

// The line of that key; empty if there is none.
std::string lineOf(std::string_view key, std::string_view launcher)
{
    const std::string text = AutostartEntry::text(launcher);
    const auto begin = text.find("\n" + std::string(key) + "=");
    return begin == std::string::npos ? "" : text.substr(begin + 1, text.find('\n', begin + 1) - begin - 1);
}

std::string execLine(std::string_view launcher) { return lineOf("Exec", launcher); }

TEST(AutostartEntry, it_starts_the_program_by_its_quoted_path)
{
    EXPECT_EQ(execLine("/opt/My Haloric.app/haloric"), R"(Exec="/opt/My Haloric.app/haloric")");
}

TEST(AutostartEntry, special_characters_are_escaped_for_the_quotes_and_again_for_the_value)
{
    EXPECT_EQ(execLine("/a$b`c\"d"), R"(Exec="/a\\$b\\`c\\"d")");
    EXPECT_EQ(execLine("/a\\b"), R"(Exec="/a\\\\b")");
}

TEST(AutostartEntry, a_percent_sign_is_not_a_field_code)
{
    EXPECT_EQ(execLine("/100%f"), R"(Exec=/usr/bin/env "/100%%f")");
}

TEST(AutostartEntry, line_breaks_in_a_path_are_escaped)
{
    EXPECT_EQ(execLine("/a\nHidden=true\t\r"), R"(Exec="/a\nHidden=true\t\r")");
    EXPECT_EQ(AutostartEntry::stateOf(AutostartEntry::text("/a\nHidden=true")), State::enabled);
}

TEST(AutostartEntry, try_exec_names_the_program)
{
    EXPECT_EQ(lineOf("TryExec", "/opt/My Haloric.app/haloric"), "TryExec=/opt/My Haloric.app/haloric");
    EXPECT_EQ(lineOf("TryExec", "/100%f/$\"x\""), "TryExec=/100%f/$\"x\"");
    EXPECT_EQ(lineOf("TryExec", "/a\\b"), R"(TryExec=/a\\b)");
}

TEST(AutostartEntry, a_path_that_try_exec_cannot_hold_is_omitted_there)
{
    for (const char* launcher : {"/a\nHidden=true", "/a\tb", "/a\x7f", "/ä", "/a "}) {
        EXPECT_EQ(lineOf("TryExec", launcher), "") << launcher;
        EXPECT_NE(execLine(launcher), "") << launcher;
    }
}

TEST(AutostartEntry, a_written_entry_is_enabled)
{
    EXPECT_EQ(AutostartEntry::stateOf(AutostartEntry::text("/opt/haloric")), State::enabled);
}

TEST(AutostartEntry, each_of_the_desktops_marks_disables_it)
{
    for (const char* mark : {"Hidden=true", "X-GNOME-Autostart-enabled=false", "  Hidden =  true  \r"})
        EXPECT_EQ(AutostartEntry::stateOf("[Desktop Entry]\nExec=haloric\n" + std::string(mark)), State::disabled)
            << mark;
}

TEST(AutostartEntry, other_keys_comments_and_groups_do_not_disable_it)
{
    for (const char* line :
         {"Hidden=false", "X-GNOME-Autostart-enabled=true", "OnlyShowIn=GNOME;", "NotShowIn=KDE;", "#Hidden=true",
          "Hidden[de]=true", "[Desktop Action other]\nHidden=true", "NoDisplay=true", "garbage"})
        EXPECT_EQ(AutostartEntry::stateOf("[Desktop Entry]\nExec=haloric\n" + std::string(line)), State::enabled)
            << line;
}

TEST(AutostartEntry, an_entry_that_starts_nothing_is_unusable)
{
    for (const char* text : {"", "\n\n", "Exec=haloric", "[Desktop Entry]", "[Desktop Entry]\nExec=\n",
                             "[Other]\nExec=haloric", "\xff\xfe\0binary"})
        EXPECT_EQ(AutostartEntry::stateOf(text), State::unusable) << text;
}

} // namespace
} // namespace haloric
