#include "x11/qt/FormHarness.h"

#include <filesystem>
#include <fstream>
#include <optional>

namespace haloric {
namespace {

struct Dialogs : testing::Test {
    X11Session session{WindowManager::openbox};
    FormHarness toy{session};

    bool waitForWindow()
    {
        return session.observer().waitUntil([this] { return !toy.focused().empty(); });
    }
};

TEST_F(Dialogs, return_answers_an_alert_with_its_first_button)
{
    toy.tell("alert");
    ASSERT_TRUE(toy.waitForFocus("Open System Settings"));
    toy.press(Key::kReturn);
    EXPECT_EQ(toy.hear("answer"), "answer 1000");
}

TEST_F(Dialogs, the_second_button_is_reached_by_keys)
{
    toy.tell("alert");
    ASSERT_TRUE(toy.waitForFocus("Open System Settings"));
    ASSERT_TRUE(toy.tabTo("Later"));
    toy.press(Key::kReturn);
    EXPECT_EQ(toy.hear("answer"), "answer 1001");
}

TEST_F(Dialogs, escape_answers_an_alert_with_its_last_button)
{
    toy.tell("alert");
    ASSERT_TRUE(waitForWindow());
    toy.press(Key::kEscape);
    EXPECT_EQ(toy.hear("answer"), "answer 1001");
}

TEST_F(Dialogs, the_program_goes_on_while_an_alert_is_open)
{
    toy.tell("alert");
    ASSERT_TRUE(waitForWindow());
    ASSERT_TRUE(toy.showForm());
    EXPECT_TRUE(toy.isVisible("toggle"));
    EXPECT_FALSE(toy.hasSaid("answer"));
}

TEST_F(Dialogs, the_end_of_the_program_ends_an_open_alert)
{
    toy.tell("alert");
    ASSERT_TRUE(waitForWindow());
    toy.process().signal(SIGTERM);
    EXPECT_TRUE(toy.hears("ended"));
    EXPECT_EQ(toy.process().waitForExit(), 0);
}

TEST_F(Dialogs, an_error_is_shown_until_it_is_confirmed)
{
    toy.tell("error");
    ASSERT_TRUE(toy.waitForFocus("OK"));
    toy.press(Key::kSpace);
    EXPECT_TRUE(toy.hears("error seen"));
}

struct Chooser : testing::Test {
    X11Session session{WindowManager::openbox};
    std::filesystem::path folder = session.server().folder() / "data";
    std::optional<FormHarness> toy;

    void SetUp() override
    {
        install("org.test.Beta", "Beta");
        install("org.test.Alpha", "Alpha");
        install("org.test.Hidden", "Beth\nNoDisplay=true");
        toy.emplace(session, Environment{{"XDG_DATA_HOME", folder}, {"XDG_DATA_DIRS", folder / "none"}});
        toy->tell("choose");
        ASSERT_TRUE(toy->waitForFocus("QLineEdit"));
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
            toy->press(static_cast<std::uint32_t>(letter));
    }
};

TEST_F(Chooser, an_application_is_found_by_typing_and_chosen_by_return)
{
    type("bet");
    ASSERT_TRUE(session.observer().waitUntil([this] { return !toy->isVisible("Alpha"); }));
    toy->press(Key::kReturn);
    EXPECT_EQ(toy->hear("chosen"), "chosen " + pathOf("org.test.Beta").string());
}

TEST_F(Chooser, the_first_application_is_chosen_by_the_button)
{
    ASSERT_TRUE(toy->click("Add"));
    EXPECT_EQ(toy->hear("chosen"), "chosen " + pathOf("org.test.Alpha").string());
}

TEST_F(Chooser, the_arrows_move_the_choice_while_the_search_field_has_the_keyboard)
{
    toy->press(Key::kDown);
    toy->press(Key::kReturn);
    EXPECT_EQ(toy->hear("chosen"), "chosen " + pathOf("org.test.Beta").string());
}

TEST_F(Chooser, a_double_click_chooses)
{
    ASSERT_TRUE(toy->click("Beta"));
    session.input().press();
    session.input().release();
    EXPECT_EQ(toy->hear("chosen"), "chosen " + pathOf("org.test.Beta").string());
}

TEST_F(Chooser, nothing_can_be_chosen_where_nothing_is_found)
{
    type("bethel");
    toy->press(Key::kReturn);
    EXPECT_FALSE(toy->hasSaid("chosen"));
    EXPECT_FALSE(toy->isVisible("Beth"));
    toy->press(Key::kEscape);
    EXPECT_EQ(toy->hear("chosen"), "chosen nothing");
}

TEST_F(Dialogs, the_about_panel_waits_for_nobody_and_closes_by_escape)
{
    toy.tell("about");
    ASSERT_TRUE(session.observer().waitUntil([this] { return session.observer().clientList().size() == 1; }));
    ASSERT_TRUE(session.observer().waitUntil(
        [this] { return session.observer().activeWindow() == session.observer().clientList().front(); }));
    toy.press(Key::kEscape);
    EXPECT_TRUE(session.observer().waitUntil([this] { return session.observer().clientList().empty(); }));
}

TEST_F(Dialogs, the_about_panel_names_the_program_its_version_and_what_it_does)
{
    toy.tell("about");
    ASSERT_TRUE(session.observer().waitUntil([this] { return session.observer().clientList().size() == 1; }));
    EXPECT_EQ(toy.labels("About Haloric"), "Haloric|Version dev|Makes the focused window unmistakable.");
    toy.tell("about 7");
    EXPECT_EQ(toy.labels("About Haloric"), "Haloric|Version dev (7)|Makes the focused window unmistakable.");
}

} // namespace
} // namespace haloric
