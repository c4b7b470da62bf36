#include "hosts/linux/files/DesktopEntries.h"

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <thread>

#include <poll.h>
#include <sys/inotify.h>
#include <unistd.h>

namespace haloric {
namespace {

using Entry = DesktopEntries::Entry;

ApplicationNames windowClass(std::string instanceName, std::string className)
{
    return {{}, std::move(instanceName), std::move(className)};
}

const std::vector<Entry> kEntries{{"org.example.Editor", "editor-window"},
                                  {"browser", ""},
                                  {"Terminal", ""},
                                  {"editor-window", ""},
                                  {"chat", "Chat"}};

TEST(DesktopEntries, an_entry_that_claims_the_class_wins_over_one_named_like_it)
{
    EXPECT_EQ(DesktopEntries::match(windowClass("x", "editor-window"), kEntries), "org.example.Editor");
    EXPECT_EQ(DesktopEntries::match(windowClass("editor-window", "x"), kEntries), "org.example.Editor");
}

TEST(DesktopEntries, names_are_compared_with_case_first_and_then_without)
{
    EXPECT_EQ(DesktopEntries::match(windowClass("", "chat"), kEntries), "chat");
    EXPECT_EQ(DesktopEntries::match(windowClass("", "Browser"), kEntries), "browser");
    EXPECT_EQ(DesktopEntries::match(windowClass("terminal", ""), kEntries), "Terminal");
    const std::vector<Entry> both{{"CHAT", ""}, {"Chat", ""}};
    EXPECT_EQ(DesktopEntries::match(windowClass("", "Chat"), both), "Chat");
}

TEST(DesktopEntries, the_class_name_wins_over_the_instance_name)
{
    EXPECT_EQ(DesktopEntries::match(windowClass("browser", "Terminal"), kEntries), "Terminal");
}

TEST(DesktopEntries, empty_names_match_nothing)
{
    EXPECT_EQ(DesktopEntries::match({}, kEntries), std::nullopt);
    EXPECT_EQ(DesktopEntries::match(windowClass("", "unknown"), kEntries), std::nullopt);
}

TEST(DesktopEntries, of_several_claims_the_shown_entry_wins_then_the_one_named_like_the_class_then_the_first_by_name)
{
    const Entry handler{"app-url-handler", "App", false};
    const Entry shown{"z.shown", "App"};
    const Entry other{"b.other", "App"};
    const Entry named{"App", "App"};
    const Entry hiddenNamed{"App", "App", false};
    EXPECT_EQ(DesktopEntries::match(windowClass("", "App"), {handler, shown}), "z.shown");
    EXPECT_EQ(DesktopEntries::match(windowClass("", "App"), {hiddenNamed, shown}), "z.shown");
    EXPECT_EQ(DesktopEntries::match(windowClass("", "App"), {shown, other, named}), "App");
    EXPECT_EQ(DesktopEntries::match(windowClass("", "App"), {{"app", "App"}, other}), "app");
    EXPECT_EQ(DesktopEntries::match(windowClass("", "App"), {shown, other}), "b.other");
    EXPECT_EQ(DesktopEntries::match(windowClass("", "App"), {other, shown}), "b.other");
    EXPECT_EQ(DesktopEntries::match(windowClass("", "APP"), {{"aPP", "", false}, {"app", ""}}), "app");
}

// Reports whether a file of a folder has been opened since construction.
class EntryReads {
public:
    explicit EntryReads(const std::filesystem::path& folder) { inotify_add_watch(m_watch, folder.c_str(), IN_OPEN); }
    ~EntryReads() { close(m_watch); }
    EntryReads(const EntryReads&) = delete;
    EntryReads& operator=(const EntryReads&) = delete;

    bool happened() const
    {
        pollfd readable{m_watch, POLLIN, 0};
        return poll(&readable, 1, 0) != 0;
    }

private:
    int m_watch = inotify_init1(IN_CLOEXEC);
};

// GIO reads the environment once, so the folder is created before its first use.
class InstalledEntries : public testing::Test {
protected:
    static void SetUpTestSuite()
    {
        s_folder = std::filesystem::temp_directory_path() / ("haloric-entries-" + std::to_string(getpid()));
        std::filesystem::create_directories(s_folder / "applications");
        setenv("XDG_DATA_HOME", s_folder.c_str(), 1);
        setenv("XDG_DATA_DIRS", s_folder.c_str(), 1);
        install("org.example.Painter", "StartupWMClass=painter-main\n");
        install("plain", "");
    }

    static void TearDownTestSuite() { std::filesystem::remove_all(s_folder); }

    static void install(const std::string& identifier, const std::string& more)
    {
        std::ofstream(s_folder / "applications" / (identifier + ".desktop"))
            << "[Desktop Entry]\nType=Application\nName=" << identifier << "\nExec=/bin/true\n"
            << more;
    }

    static void uninstall(const std::string& identifier)
    {
        std::filesystem::remove(applications() / (identifier + ".desktop"));
    }

    static std::filesystem::path applications() { return s_folder / "applications"; }

    static inline std::filesystem::path s_folder;
};

TEST_F(InstalledEntries, a_window_is_matched_with_the_installed_entries)
{
    DesktopEntries entries;
    EXPECT_EQ(entries.identifier(windowClass("x", "painter-main")), "org.example.Painter");
    EXPECT_EQ(entries.identifier(windowClass("x", "Plain")), "plain");
    EXPECT_EQ(entries.identifier(windowClass("x", "Plain")), "plain");
}

TEST_F(InstalledEntries, a_windows_application_id_is_used_as_it_is)
{
    DesktopEntries entries;
    EXPECT_EQ(entries.identifier({"org.example.Other", "x", "painter-main"}), "org.example.Other");
}

TEST_F(InstalledEntries, without_an_entry_the_class_name_is_the_identifier)
{
    DesktopEntries entries;
    EXPECT_EQ(entries.identifier(windowClass("inst", "Unknown")), "Unknown");
    EXPECT_EQ(entries.identifier(windowClass("inst", "")), "inst");
    EXPECT_EQ(entries.identifier({}), std::nullopt);
}

TEST_F(InstalledEntries, names_that_are_not_utf8_are_not_offered)
{
    const std::string bad = "Caf\xe9";
    install(bad, "");
    DesktopEntries entries;
    EXPECT_EQ(entries.identifier({bad, "x", "painter-main"}), "org.example.Painter");
    EXPECT_EQ(entries.identifier(windowClass("inst", bad)), "inst");
    EXPECT_EQ(entries.identifier(windowClass(bad, bad)), std::nullopt);
    EXPECT_EQ(DesktopEntries::identifierAt(applications() / (bad + ".desktop")), std::nullopt);
    for (const ApplicationFile& file : DesktopEntries::shown())
        EXPECT_NE(file.path, (applications() / (bad + ".desktop")).string());
    uninstall(bad);
}

// GIO receives changes on a separate thread, so the test waits for them.
bool waitFor(const std::function<bool()>& predicate)
{
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!predicate()) {
        if (std::chrono::steady_clock::now() >= end)
            return false;
        std::this_thread::yield();
    }
    return true;
}

TEST_F(InstalledEntries, installing_and_removing_applications_takes_effect)
{
    DesktopEntries entries;
    const auto isFoundAs = [&](const std::string& identifier) {
        return waitFor([&] { return entries.identifier(windowClass("x", "late-main")) == identifier; });
    };
    ASSERT_EQ(entries.identifier(windowClass("x", "late-main")), "late-main");
    install("org.example.Late", "StartupWMClass=late-main\n");
    EXPECT_TRUE(isFoundAs("org.example.Late"));
    uninstall("org.example.Late");
    EXPECT_TRUE(isFoundAs("late-main"));
    install("org.example.Later", "StartupWMClass=late-main\n");
    EXPECT_TRUE(isFoundAs("org.example.Later"));
    uninstall("org.example.Later");
    EXPECT_TRUE(isFoundAs("late-main"));
}

TEST_F(InstalledEntries, a_chosen_entry_has_the_identifier_of_its_windows)
{
    install("net.example.Chat", "StartupWMClass=chat-main\n");
    install("net.example.Chat-handler", "StartupWMClass=chat-main\nNoDisplay=true\n");
    install("net.example.ChatPrivate", "StartupWMClass=chat-main\n");
    install("chat-main", "");
    DesktopEntries entries;
    ASSERT_TRUE(waitFor([&] { return entries.identifier(windowClass("x", "chat-main")) == "net.example.Chat"; }));
    for (const char* chosen :
         {"net.example.Chat", "net.example.Chat-handler", "net.example.ChatPrivate", "chat-main"}) {
        const auto path = applications() / (std::string(chosen) + ".desktop");
        EXPECT_EQ(DesktopEntries::identifierAt(path), "net.example.Chat") << chosen;
    }
    EXPECT_EQ(DesktopEntries::identifierAt(applications() / "plain.desktop"), "plain");
    for (const char* each : {"net.example.Chat", "net.example.Chat-handler", "net.example.ChatPrivate", "chat-main"})
        uninstall(each);
}

TEST_F(InstalledEntries, an_unknown_class_does_not_cause_entries_to_be_read_again)
{
    DesktopEntries entries;
    EXPECT_EQ(entries.identifier(windowClass("x", "Unclaimed")), "Unclaimed");
    const EntryReads reads(applications());
    for (int time = 0; time < 3; ++time)
        EXPECT_EQ(entries.identifier(windowClass("x", "Unclaimed")), "Unclaimed");
    EXPECT_EQ(entries.identifier(windowClass("x", "Also unclaimed")), "Also unclaimed");
    EXPECT_FALSE(reads.happened());
}

} // namespace
} // namespace haloric
