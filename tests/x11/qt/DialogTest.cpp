#include "x11/qt/FormHarness.h"

#include <filesystem>
#include <fstream>
#include <optional>

namespace haloric {
namespace {

struct Dialogs : testing::Test {
    X11Session session{WindowManager::openbox};
    FormHarness harness{session};

    bool waitForWindow()
    {
        return session.observer().waitUntil([this] { return !harness.focused().empty(); });
    }
};

TEST_F(Dialogs, return_presses_an_alerts_first_button)
{
    harness.send("alert");
    ASSERT_TRUE(harness.waitForFocus("Open System Settings"));
    harness.press(Key::kReturn);
    EXPECT_EQ(harness.report("answer"), "answer 1000");
}

TEST_F(Dialogs, the_second_button_is_reached_by_keys)
{
    harness.send("alert");
    ASSERT_TRUE(harness.waitForFocus("Open System Settings"));
    ASSERT_TRUE(harness.tabTo("Later"));
    harness.press(Key::kReturn);
    EXPECT_EQ(harness.report("answer"), "answer 1001");
}

TEST_F(Dialogs, escape_presses_an_alerts_last_button)
{
    harness.send("alert");
    ASSERT_TRUE(waitForWindow());
    harness.press(Key::kEscape);
    EXPECT_EQ(harness.report("answer"), "answer 1001");
}

TEST_F(Dialogs, the_program_keeps_working_while_an_alert_is_open)
{
    harness.send("alert");
    ASSERT_TRUE(waitForWindow());
    ASSERT_TRUE(harness.showForm());
    EXPECT_TRUE(harness.isVisible("toggle"));
    EXPECT_FALSE(harness.hasReported("answer"));
}

TEST_F(Dialogs, the_end_of_the_program_ends_an_open_alert)
{
    harness.send("alert");
    ASSERT_TRUE(waitForWindow());
    harness.process().signal(SIGTERM);
    EXPECT_TRUE(harness.reports("ended"));
    EXPECT_EQ(harness.process().waitForExit(), 0);
}

TEST_F(Dialogs, an_error_stays_until_it_is_confirmed)
{
    harness.send("error");
    ASSERT_TRUE(harness.waitForFocus("OK"));
    harness.press(Key::kSpace);
    EXPECT_TRUE(harness.reports("error seen"));
}

struct Chooser : testing::Test {
    X11Session session{WindowManager::openbox};
    std::filesystem::path folder = session.server().folder() / "data";
    std::optional<FormHarness> harness;

    void SetUp() override
    {
        install("org.test.Beta", "Beta");
        install("org.test.Alpha", "Alpha");
        install("org.test.Hidden", "Beth\nNoDisplay=true");
        harness.emplace(session, Environment{{"XDG_DATA_HOME", folder}, {"XDG_DATA_DIRS", folder / "none"}});
        harness->send("choose");
        ASSERT_TRUE(harness->waitForFocus("QLineEdit"));
    }

    std::filesystem::path pathOf(const std::string& identifier)
    {
        return folder / "applications" / (identifier + ".desktop");
    }

    void install(const std::string& identifier, const std::string& name)
    {
        std::filesystem::create_directories(folder / "applications");
        std::ofstream(pathOf(identifier)) << "[Desktop Entry]\nType=Application\nExec=true\nName=" << name << "\n";
    }

    void type(const std::string& text)
    {
        for (const char letter : text)
            harness->press(static_cast<std::uint32_t>(letter));
    }
};

TEST_F(Chooser, an_application_is_found_by_typing_and_chosen_by_return)
{
    type("bet");
    ASSERT_TRUE(session.observer().waitUntil([this] { return !harness->isVisible("Alpha"); }));
    harness->press(Key::kReturn);
    EXPECT_EQ(harness->report("chosen"), "chosen " + pathOf("org.test.Beta").string());
}

TEST_F(Chooser, the_first_application_is_chosen_by_the_button)
{
    ASSERT_TRUE(harness->click("Add"));
    EXPECT_EQ(harness->report("chosen"), "chosen " + pathOf("org.test.Alpha").string());
}

TEST_F(Chooser, arrow_keys_move_the_selection_while_the_search_field_has_the_focus)
{
    harness->press(Key::kDown);
    harness->press(Key::kReturn);
    EXPECT_EQ(harness->report("chosen"), "chosen " + pathOf("org.test.Beta").string());
}

TEST_F(Chooser, a_double_click_chooses)
{
    ASSERT_TRUE(harness->click("Beta"));
    session.input().press();
    session.input().release();
    EXPECT_EQ(harness->report("chosen"), "chosen " + pathOf("org.test.Beta").string());
}

TEST_F(Chooser, return_does_nothing_without_a_search_result)
{
    type("bethel");
    harness->press(Key::kReturn);
    EXPECT_FALSE(harness->hasReported("chosen"));
    EXPECT_FALSE(harness->isVisible("Beth"));
    harness->press(Key::kEscape);
    EXPECT_EQ(harness->report("chosen"), "chosen nothing");
}

TEST_F(Dialogs, the_about_panel_is_not_modal_and_closes_by_escape)
{
    harness.send("about");
    ASSERT_TRUE(session.observer().waitUntil([this] { return session.observer().clientList().size() == 1; }));
    ASSERT_TRUE(session.observer().waitUntil(
        [this] { return session.observer().activeWindow() == session.observer().clientList().front(); }));
    harness.press(Key::kEscape);
    EXPECT_TRUE(session.observer().waitUntil([this] { return session.observer().clientList().empty(); }));
}

TEST_F(Dialogs, the_about_panel_shows_name_version_and_credits)
{
    harness.send("about");
    ASSERT_TRUE(session.observer().waitUntil([this] { return session.observer().clientList().size() == 1; }));
    EXPECT_EQ(harness.labels("About Haloric"), "Haloric|Version dev|Makes the focused window unmistakable.");
    harness.send("about 7");
    EXPECT_EQ(harness.labels("About Haloric"), "Haloric|Version dev (7)|Makes the focused window unmistakable.");
}

} // namespace
} // namespace haloric
