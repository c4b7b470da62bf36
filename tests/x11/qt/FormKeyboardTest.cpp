#include "x11/qt/FormHarness.h"

namespace haloric {
namespace {

struct FormKeyboard : testing::Test {
    X11Session session{WindowManager::openbox};
    FormHarness toy{session};

    void SetUp() override { ASSERT_TRUE(toy.showForm()); }

    bool isHidden()
    {
        return session.observer().waitUntil([this] { return !toy.isVisible("toggle"); });
    }
};

TEST_F(FormKeyboard, the_tabulator_goes_through_the_controls_from_top_to_bottom)
{
    toy.tell("scope 1");
    for (const char* name : {"toggle", "well", "slider", "picker", "app-openbox", "app-python3.11", "running", "choose",
                             "Reset to Defaults", "Grant Accessibility…", "Restart", "Quit Haloric", "toggle"}) {
        EXPECT_TRUE(toy.waitForFocus(name)) << name << ", not " << toy.focused();
        toy.press(Key::kTab);
    }
}

TEST_F(FormKeyboard, a_blank_turns_a_toggle)
{
    ASSERT_TRUE(toy.tabTo("toggle"));
    toy.press(Key::kSpace);
    EXPECT_TRUE(toy.hears("toggle on"));
}

TEST_F(FormKeyboard, arrows_move_a_slider_by_its_steps)
{
    ASSERT_TRUE(toy.tabTo("slider"));
    toy.press(Key::kRight);
    EXPECT_TRUE(toy.hears("slider 3.50"));
    toy.press(Key::kEnd);
    EXPECT_TRUE(toy.hears("slider 12.00"));
    toy.press(Key::kHome);
    EXPECT_TRUE(toy.hears("slider 1.00"));
}

TEST_F(FormKeyboard, a_value_outside_the_range_stays_until_the_user_moves_the_slider)
{
    toy.tell("width 40");
    ASSERT_TRUE(toy.tabTo("slider"));
    EXPECT_FALSE(toy.hasSaid("slider"));
    toy.press(Key::kLeft);
    EXPECT_TRUE(toy.hears("slider 11.50"));
}

TEST_F(FormKeyboard, a_colour_is_chosen_by_keys)
{
    ASSERT_TRUE(toy.tabTo("well"));
    toy.press(Key::kSpace);
    ASSERT_TRUE(session.observer().waitUntil([this] { return toy.focused() != "well" && !toy.focused().empty(); }));
    toy.press(Key::kEscape);
    EXPECT_TRUE(session.observer().waitUntil([this] { return !toy.isVisible("QColorDialog"); }));
    EXPECT_TRUE(toy.isVisible("well"));
}

TEST_F(FormKeyboard, options_menus_and_lists_need_no_pointer)
{
    ASSERT_TRUE(toy.tabTo("picker"));
    toy.press(Key::kDown);
    EXPECT_TRUE(toy.hears("picker 1"));
    EXPECT_EQ(toy.focused(), "picker");
    ASSERT_TRUE(toy.tabTo("running"));
    toy.press(Key::kSpace);
    ASSERT_TRUE(session.observer().waitUntil([this] { return toy.isVisible("Editor"); }));
    toy.press(Key::kDown);
    toy.press(Key::kReturn);
    EXPECT_TRUE(toy.hears("added Editor"));
    ASSERT_TRUE(toy.tabTo("app-Editor"));
    toy.press(Key::kSpace);
    EXPECT_TRUE(toy.hears("removed Editor"));
}

TEST_F(FormKeyboard, the_focus_stays_when_the_form_changes_elsewhere)
{
    ASSERT_TRUE(toy.tabTo("slider"));
    toy.tell("scope 1");
    EXPECT_EQ(toy.focused(), "slider");
    toy.tell("scope 0");
    EXPECT_EQ(toy.focused(), "slider");
}

TEST_F(FormKeyboard, escape_closes_the_window)
{
    toy.press(Key::kEscape);
    EXPECT_TRUE(isHidden());
}

TEST_F(FormKeyboard, control_w_closes_the_window_which_comes_back_at_its_place)
{
    const ScreenRect before = toy.place("toggle");
    session.input().chord({Key::kControl, 'w'});
    ASSERT_TRUE(isHidden());
    ASSERT_TRUE(toy.showForm());
    EXPECT_EQ(toy.place("toggle"), before);
}

TEST_F(FormKeyboard, sections_are_told_each_time_when_they_appear)
{
    EXPECT_TRUE(toy.hears("appeared"));
    toy.press(Key::kEscape);
    ASSERT_TRUE(isHidden());
    EXPECT_FALSE(toy.hasSaid("appeared"));
    ASSERT_TRUE(toy.showForm());
    EXPECT_TRUE(toy.hears("appeared"));
}

TEST_F(FormKeyboard, controls_tell_assistive_technology_what_they_are)
{
    toy.tell("scope 1");
    EXPECT_THAT(toy.described("toggle"), testing::StartsWith("Hide highlight for full-screen windows"));
    EXPECT_EQ(toy.described("well"), "Accent color, #0a85ff");
    EXPECT_THAT(toy.described("slider"), testing::StartsWith("Width: 3.00 pt"));
    EXPECT_THAT(toy.described("picker"), testing::EndsWith("Apply to"));
    EXPECT_THAT(toy.described("app-openbox"), testing::StartsWith("Remove openbox"));
}

} // namespace
} // namespace haloric
