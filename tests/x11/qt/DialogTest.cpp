#include "x11/qt/QtToy.h"

namespace haloric {
namespace {

struct Dialogs : testing::Test {
    X11Session session{WindowManager::openbox};
    QtToy toy{session};

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

TEST_F(Dialogs, an_application_is_found_by_typing_and_chosen_by_return)
{
    toy.tell("choose");
    ASSERT_TRUE(waitForWindow());
    for (const char letter : std::string("openbox"))
        toy.press(static_cast<std::uint32_t>(letter));
    ASSERT_TRUE(session.observer().waitUntil([this] { return !toy.isVisible("Python (v3.11)"); }));
    toy.press(Key::kReturn);
    EXPECT_EQ(toy.hear("chosen"), "chosen nothing"); // openbox is hidden from menus
}

TEST_F(Dialogs, escape_chooses_no_application)
{
    toy.tell("choose");
    ASSERT_TRUE(waitForWindow());
    toy.press(Key::kEscape);
    EXPECT_EQ(toy.hear("chosen"), "chosen nothing");
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

} // namespace
} // namespace haloric
