// Starts of the program while an instance runs, and the commands of its command line.
#include "testing/x11/FileContents.h"
#include "testing/x11/ProgramShell.h"
#include "testing/x11/TemporaryFolder.h"
#include "x11/program/scenes/Scene.h"

#include <algorithm>
#include <csignal>
#include <filesystem>

#include <sys/stat.h>

namespace haloric {
namespace {

struct SecondStartScene : testing::Test {
    struct Outcome {
        std::optional<int> exitCode;
        std::string output;
        std::string errors;
    };

    X11Session session{WindowManager::openbox};

    static Outcome start(const std::vector<std::string>& arguments, const Environment& environment)
    {
        ChildProcess program(HaloricProcess::start(arguments, environment));
        const auto exitCode = program.waitForExit();
        return {exitCode, program.standardOutput(), program.standardError()};
    }
    Outcome start(const std::vector<std::string>& arguments) { return start(arguments, session.environment()); }

    std::string stored() { return contentsOf(HaloricProcess::settingsFile(session.environment())); }

    // Opens a window, focuses it and waits for its highlight.
    std::unique_ptr<TestClient> client;
    void awaitHighlight(HaloricProcess& haloric)
    {
        client = session.makeClient();
        ASSERT_TRUE(client->showFocused());
        ASSERT_TRUE(haloric.waitForHighlight(client->visibleFrame())) << haloric.process().standardError();
    }
    // Waits for the settings window and its highlight; no other window may get the focus meanwhile.
    void awaitSettings(HaloricProcess& haloric)
    {
        DesktopObserver& observer = session.observer();
        const auto activeTitle = [&] { return observer.text(observer.activeWindow(), "_NET_WM_NAME"); };
        ASSERT_TRUE(observer.waitUntil([&] { return activeTitle() == kSettingsTitle; }))
            << haloric.process().standardError();
        const xcb_window_t frame = observer.topLevelOf(observer.activeWindow());
        ASSERT_TRUE(haloric.waitForHighlight(observer.rectOnRoot(frame))) << haloric.process().standardError();
    }
};

TEST_F(SecondStartScene, a_second_start_exits_and_the_first_keeps_running)
{
    HaloricProcess first(session, kStill);
    awaitHighlight(first);
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{}, {"--settings"}}) {
        const auto second = start(arguments);
        EXPECT_EQ(second.exitCode, 0) << second.errors;
        EXPECT_EQ(second.errors, "");
    }
    EXPECT_TRUE(first.process().isRunning());
    EXPECT_EQ(first.stop(), 0);
}

TEST_F(SecondStartScene, a_change_that_cannot_be_saved_is_reported_and_a_pipe_in_place_of_the_settings_stays)
{
    const auto file = HaloricProcess::settingsFile(session.environment());
    std::filesystem::create_directories(file.parent_path());
    ASSERT_EQ(mkfifo(file.c_str(), 0600), 0);
    HaloricProcess first(session);
    awaitHighlight(first);
    for (const char* state : {"on", "off"}) {
        const auto toggled = start({"--toggle", "dim"});
        EXPECT_EQ(toggled.exitCode, 1);
        EXPECT_EQ(toggled.errors, "haloric: dim is " + std::string(state) +
                                      ", but that is not saved: " + file.string() + " is no ordinary file.\n");
    }
    EXPECT_TRUE(std::filesystem::is_fifo(file));
    EXPECT_EQ(first.stop(), 0);
    const std::string log = first.process().standardError();
    const std::string unsaved = "haloric: the settings are not saved: " + file.string() + " is no ordinary file.\n";
    EXPECT_NE(log.find("haloric: " + file.string() + " is no ordinary file; it is not read\n"), std::string::npos)
        << log;
    EXPECT_NE(log.find(unsaved), std::string::npos) << log;
    EXPECT_EQ(log.find(unsaved), log.rfind(unsaved)) << log;
}

TEST_F(SecondStartScene, of_several_starts_at_once_one_runs)
{
    std::vector<std::unique_ptr<HaloricProcess>> starts;
    for (int index = 0; index < 4; ++index)
        starts.push_back(std::make_unique<HaloricProcess>(session, kStill));
    const auto running = [&] {
        return std::ranges::count_if(starts, [](const auto& each) { return each->process().isRunning(); });
    };
    ASSERT_TRUE(session.observer().waitUntil([&] { return running() == 1; }));
    for (const auto& each : starts) {
        if (!each->process().isRunning()) {
            EXPECT_EQ(each->process().waitForExit(), 0) << each->process().standardError();
        } else {
            awaitSettings(*each); // the other starts requested them
        }
    }
    EXPECT_EQ(running(), 1);
}

TEST_F(SecondStartScene, a_killed_program_does_not_block_the_next_start)
{
    {
        HaloricProcess killed(session, kStill);
        awaitHighlight(killed);
        killed.process().signal(SIGKILL);
        ASSERT_EQ(killed.process().waitForExit(), 128 + SIGKILL);
    }
    EXPECT_EQ(start({"--quit"}).exitCode, 3);
    HaloricProcess next(session, kStill);
    awaitHighlight(next);
}

TEST_F(SecondStartScene, quit_ends_the_program_before_it_returns)
{
    HaloricProcess first(session, kStill);
    awaitHighlight(first);
    const auto quit = start({"--quit"});
    EXPECT_EQ(quit.exitCode, 0) << quit.errors;
    EXPECT_EQ(first.process().waitForExit(), 0);
    EXPECT_TRUE(first.waitForNothing());
}

TEST_F(SecondStartScene, quit_returns_only_when_the_overlays_the_connection_and_the_lock_are_gone)
{
    for (int round = 0; round < 5; ++round) {
        HaloricProcess running(session, kStill);
        awaitHighlight(running);
        ASSERT_EQ(start({"--quit"}).exitCode, 0);
        for (const RootChild& child : session.observer().rootChildren())
            EXPECT_NE(child.process, running.pid());
        EXPECT_EQ(start({"--toggle", "glow"}).exitCode, 3);
        client.reset();
    }
}

TEST_F(SecondStartScene, starts_with_other_names_of_the_display_or_other_folders_find_the_first)
{
    HaloricProcess first(session, kStill);
    awaitHighlight(first);
    const std::string number = session.display(); // ":3"
    const TemporaryFolder elsewhere;
    std::vector<Environment> environments(3, session.environment());
    environments[0]["DISPLAY"] = "unix" + number;
    environments[1]["XDG_RUNTIME_DIR"] = elsewhere.path().string();
    environments[2].erase("XDG_RUNTIME_DIR");
    for (const Environment& environment : environments) {
        const auto second = start({}, environment);
        EXPECT_EQ(second.exitCode, 0) << second.errors;
        EXPECT_EQ(start({"--toggle", "glow"}, environment).exitCode, 0);
        EXPECT_TRUE(first.process().isRunning());
    }
    EXPECT_EQ(start({"--quit"}, environments[1]).exitCode, 0);
    EXPECT_EQ(first.process().waitForExit(), 0);
}

TEST_F(SecondStartScene, a_runtime_folder_that_comes_later_hides_no_instance)
{
    const TemporaryFolder parent;
    Environment environment = session.environment();
    environment["XDG_RUNTIME_DIR"] = (parent.path() / "run").string();
    HaloricProcess first(session, kStill, {}, environment);
    awaitHighlight(first);
    std::filesystem::create_directory(parent.path() / "run");
    std::filesystem::permissions(parent.path() / "run", std::filesystem::perms::owner_all);
    EXPECT_EQ(start({}, environment).exitCode, 0);
    EXPECT_EQ(start({"--toggle", "glow"}, environment).exitCode, 0);
    EXPECT_EQ(start({"--quit"}, environment).exitCode, 0);
    EXPECT_EQ(first.process().waitForExit(), 0);
}

TEST_F(SecondStartScene, of_several_starts_with_different_folders_at_once_one_runs)
{
    std::vector<std::unique_ptr<TemporaryFolder>> folders;
    std::vector<std::unique_ptr<HaloricProcess>> starts;
    for (int index = 0; index < 4; ++index) {
        folders.push_back(std::make_unique<TemporaryFolder>());
        starts.push_back(
            std::make_unique<HaloricProcess>(session, kStill, std::vector<std::string>{},
                                             Environment{{"XDG_RUNTIME_DIR", folders.back()->path().string()}}));
    }
    const auto running = [&] {
        return std::ranges::count_if(starts, [](const auto& each) { return each->process().isRunning(); });
    };
    ASSERT_TRUE(session.observer().waitUntil([&] { return running() == 1; }));
    for (const auto& each : starts) {
        if (!each->process().isRunning()) {
            EXPECT_EQ(each->process().waitForExit(), 0) << each->process().standardError();
        }
    }
}

TEST_F(SecondStartScene, toggle_removes_the_border_and_brings_it_back)
{
    HaloricProcess first(session, R"({"pulseEnabled": false, "glowEnabled": false})");
    awaitHighlight(first);
    const auto off = start({"--toggle", "border"});
    EXPECT_EQ(off.exitCode, 0) << off.errors;
    EXPECT_EQ(off.output, "border is off\n");
    const ScreenRect frame = client->visibleFrame();
    EXPECT_TRUE(session.observer().waitUntil([&] { return !hasBorder(session.observer().capture(frame), frame); }));
    EXPECT_NE(stored().find(R"("borderEnabled":false)"), std::string::npos) << stored();
    EXPECT_EQ(start({"--toggle", "border"}).output, "border is on\n");
    EXPECT_TRUE(session.observer().waitUntil([&] { return hasBorder(session.observer().capture(frame), frame); }));
}

TEST_F(SecondStartScene, without_a_running_program_commands_report_an_error_and_exit_with_3)
{
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{"--quit"}, {"--toggle", "glow"}}) {
        const auto command = start(arguments);
        EXPECT_EQ(command.exitCode, 3);
        EXPECT_EQ(command.errors, "haloric: no instance is running on this display\n");
    }
    EXPECT_EQ(start({"--toggle", "sound"}).exitCode, 2);
}

TEST_F(SecondStartScene, print_settings_gives_the_same_output_with_and_without_a_running_program)
{
    for (const std::string record : {R"({"borderWidth": 5.5, "dimApps": ["a"]})", R"({"borderWidth": "wide"})"}) {
        std::optional<HaloricProcess> first(std::in_place, session, record);
        awaitHighlight(*first);
        const auto running = start({"--print-settings"});
        EXPECT_EQ(running.exitCode, 0) << running.errors;
        EXPECT_EQ(first->stop(), 0);
        const auto alone = start({"--print-settings"});
        EXPECT_EQ(alone.exitCode, 0) << alone.errors;
        EXPECT_EQ(running.output, alone.output);
        const bool isReadable = record.find("5.5") != std::string::npos;
        EXPECT_NE(alone.output.find(isReadable ? R"("borderWidth":5.5)" : R"("borderWidth":3.0)"), std::string::npos)
            << alone.output;
        client.reset();
    }
}

TEST_F(SecondStartScene, print_settings_needs_no_display)
{
    auto environment = session.environment();
    environment.erase("DISPLAY");
    const auto printed = start({"--print-settings"}, environment);
    EXPECT_EQ(printed.exitCode, 0) << printed.errors;
    EXPECT_NE(printed.output.find(R"("cornerRadius":11.0)"), std::string::npos) << printed.output;
    EXPECT_EQ(start({"--quit"}, environment).exitCode, 3);
}

TEST_F(SecondStartScene, settings_starts_the_program_if_none_is_running)
{
    HaloricProcess first(session, kStill, {"--settings"});
    awaitSettings(first);
    EXPECT_EQ(start({"--quit"}).exitCode, 0);
    EXPECT_EQ(first.process().waitForExit(), 0);
}

TEST_F(SecondStartScene, each_display_has_its_own_instance)
{
    X11Session other(WindowManager::openbox);
    auto environment = other.environment();
    environment["XDG_RUNTIME_DIR"] = session.environment().at("XDG_RUNTIME_DIR"); // as for one user's two displays
    HaloricProcess first(session, kStill);
    awaitHighlight(first);
    EXPECT_EQ(start({"--quit"}, environment).exitCode, 3);
    EXPECT_TRUE(first.process().isRunning());
}

} // namespace
} // namespace haloric
