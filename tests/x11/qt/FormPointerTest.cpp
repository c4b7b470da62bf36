#include "x11/qt/FormHarness.h"

namespace haloric {
namespace {

struct FormPointer : testing::Test {
    X11Session session{WindowManager::openbox};
    FormHarness toy{session};

    void SetUp() override { ASSERT_TRUE(toy.showForm()); }

    // The dialog of the colour well, once it has the keyboard and so its place.
    ScreenRect openDialog()
    {
        EXPECT_TRUE(toy.click("well"));
        const auto isOpen = [this] {
            const std::string focus = toy.focused();
            return !focus.empty() && focus != "well" && toy.isVisible("QColorDialog");
        };
        EXPECT_TRUE(session.observer().waitUntil(isOpen));
        return toy.place("QColorDialog");
    }
};

TEST_F(FormPointer, a_click_turns_a_toggle)
{
    ASSERT_TRUE(toy.click("toggle"));
    EXPECT_TRUE(toy.hears("toggle on"));
    ASSERT_TRUE(toy.click("toggle"));
    EXPECT_TRUE(toy.hears("toggle off"));
}

TEST_F(FormPointer, a_label_that_is_too_long_leaves_the_controls_within_reach)
{
    toy.tell("width 1e300");
    ASSERT_TRUE(toy.click("toggle"));
    EXPECT_TRUE(toy.hears("toggle on"));
}

TEST_F(FormPointer, a_disabled_toggle_stays_as_it_is)
{
    ASSERT_TRUE(toy.click("disabled"));
    EXPECT_FALSE(toy.hasSaid("disabled"));
}

TEST_F(FormPointer, a_slider_jumps_to_the_pointer_and_follows_it_in_steps_of_its_range)
{
    const ScreenRect slider = toy.place("slider");
    const int middle = slider.y + slider.height / 2;
    session.input().moveTo(slider.right() - 2, middle);
    session.input().press();
    EXPECT_TRUE(toy.hears("slider 12.00"));
    session.input().moveTo(slider.x + slider.width / 2, middle);
    EXPECT_TRUE(toy.hears("slider 6.50"));
    session.input().moveTo(slider.x - 50, middle);
    EXPECT_TRUE(toy.hears("slider 1.00"));
    session.input().release();
}

TEST_F(FormPointer, a_slider_in_the_users_hand_is_not_moved_by_a_new_form)
{
    const ScreenRect slider = toy.place("slider");
    const int middle = slider.y + slider.height / 2;
    session.input().moveTo(slider.x + slider.width / 2, middle);
    session.input().press();
    ASSERT_TRUE(toy.hears("slider 6.50"));
    toy.tell("width 2");
    session.input().moveTo(slider.right(), middle);
    EXPECT_TRUE(toy.hears("slider 12.00"));
    session.input().release();
}

TEST_F(FormPointer, a_colour_is_told_while_the_dialog_is_open_and_without_opacity)
{
    const ScreenRect dialog = openDialog();
    EXPECT_FALSE(toy.hasSaid("well"));
    session.input().clickAt(dialog.x + 30, dialog.y + 50);
    const auto chosen = toy.hear("well");
    ASSERT_TRUE(chosen);
    EXPECT_TRUE(chosen->ends_with(" 1.00")) << *chosen;
    ASSERT_TRUE(toy.click("OK"));
    EXPECT_FALSE(toy.hasSaid("well"));
}

TEST_F(FormPointer, a_cancelled_colour_is_taken_back)
{
    const ScreenRect dialog = openDialog();
    session.input().clickAt(dialog.x + 30, dialog.y + 50);
    ASSERT_TRUE(toy.hears("well"));
    ASSERT_TRUE(toy.click("Cancel"));
    EXPECT_EQ(toy.hear("well"), "well 0.04 0.52 1.00 1.00");
}

TEST_F(FormPointer, a_disabled_colour_well_opens_nothing)
{
    toy.tell("well off");
    ASSERT_TRUE(toy.click("well"));
    EXPECT_FALSE(toy.isVisible("QColorDialog"));
}

TEST_F(FormPointer, choosing_an_option_brings_the_rows_that_belong_to_it)
{
    ASSERT_TRUE(toy.click("picker"));
    ASSERT_TRUE(toy.click("Only selected apps"));
    EXPECT_TRUE(toy.hears("picker 1"));
    EXPECT_TRUE(toy.isVisible("app-openbox"));
    EXPECT_TRUE(toy.isVisible("choose"));
}

TEST_F(FormPointer, a_row_of_a_list_takes_itself_out)
{
    toy.tell("scope 1");
    ASSERT_TRUE(toy.click("app-openbox"));
    EXPECT_TRUE(toy.hears("removed openbox"));
    EXPECT_FALSE(toy.isVisible("app-openbox"));
    EXPECT_TRUE(toy.isVisible("app-python3.11"));
}

TEST_F(FormPointer, an_item_of_a_menu_is_performed_and_may_change_the_form)
{
    toy.tell("scope 1");
    ASSERT_TRUE(toy.click("running"));
    ASSERT_TRUE(toy.click("Terminal & Co"));
    EXPECT_TRUE(toy.hears("added Terminal & Co"));
    EXPECT_TRUE(toy.isVisible("app-Terminal & Co"));
}

TEST_F(FormPointer, buttons_are_performed)
{
    toy.tell("scope 1");
    ASSERT_TRUE(toy.click("choose"));
    EXPECT_TRUE(toy.hears("choose"));
    ASSERT_TRUE(toy.click("Quit Haloric"));
    EXPECT_TRUE(toy.hears("button Quit Haloric"));
}

TEST_F(FormPointer, a_new_form_calls_nothing)
{
    toy.tell("width 9");
    toy.tell("scope 1");
    toy.tell("well off");
    for (const char* news : {"slider", "picker", "well", "toggle"})
        EXPECT_FALSE(toy.hasSaid(news)) << news;
}

TEST_F(FormPointer, the_wheel_over_a_slider_does_not_move_it)
{
    const ScreenRect slider = toy.place("slider");
    session.input().moveTo(slider.x + slider.width / 2, slider.y + slider.height / 2);
    session.input().press(XCB_BUTTON_INDEX_5);
    session.input().release(XCB_BUTTON_INDEX_5);
    EXPECT_FALSE(toy.hasSaid("slider"));
}

} // namespace
} // namespace haloric
