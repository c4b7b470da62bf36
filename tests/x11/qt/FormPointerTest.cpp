#include "x11/qt/FormHarness.h"

namespace haloric {
namespace {

struct FormPointer : testing::Test {
    X11Session session{WindowManager::openbox};
    FormHarness harness{session};

    void SetUp() override { ASSERT_TRUE(harness.showForm()); }

    // Opens the colour dialog and waits until it has the focus, and so its position.
    ScreenRect openDialog()
    {
        EXPECT_TRUE(harness.click("well"));
        const auto isOpen = [this] {
            const std::string focus = harness.focused();
            return !focus.empty() && focus != "well" && harness.isVisible("QColorDialog");
        };
        EXPECT_TRUE(session.observer().waitUntil(isOpen));
        return harness.place("QColorDialog");
    }
};

TEST_F(FormPointer, a_long_label_does_not_push_the_controls_out_of_the_row)
{
    harness.send("width 1e300");
    ASSERT_TRUE(harness.click("toggle"));
    EXPECT_TRUE(harness.reports("toggle on"));
}

TEST_F(FormPointer, a_click_on_a_disabled_toggle_does_nothing)
{
    ASSERT_TRUE(harness.click("disabled"));
    EXPECT_FALSE(harness.hasReported("disabled"));
}

TEST_F(FormPointer, a_slider_jumps_to_the_pointer_and_follows_it_in_steps_of_its_range)
{
    const ScreenRect slider = harness.place("slider");
    const int middle = slider.y + slider.height / 2;
    session.input().moveTo(slider.right() - 2, middle);
    session.input().press();
    EXPECT_TRUE(harness.reports("slider 12.00"));
    session.input().moveTo(slider.x + slider.width / 2, middle);
    EXPECT_TRUE(harness.reports("slider 6.50"));
    session.input().moveTo(slider.x - 50, middle);
    EXPECT_TRUE(harness.reports("slider 1.00"));
    session.input().release();
}

TEST_F(FormPointer, a_new_form_does_not_move_a_slider_during_a_drag)
{
    const ScreenRect slider = harness.place("slider");
    const int middle = slider.y + slider.height / 2;
    session.input().moveTo(slider.x + slider.width / 2, middle);
    session.input().press();
    ASSERT_TRUE(harness.reports("slider 6.50"));
    harness.send("width 2");
    session.input().moveTo(slider.right(), middle);
    EXPECT_TRUE(harness.reports("slider 12.00"));
    session.input().release();
}

TEST_F(FormPointer, a_colour_is_reported_while_the_dialog_is_open_and_without_opacity)
{
    const ScreenRect dialog = openDialog();
    EXPECT_FALSE(harness.hasReported("well"));
    session.input().clickAt(dialog.x + 30, dialog.y + 50);
    const auto chosen = harness.report("well");
    ASSERT_TRUE(chosen);
    EXPECT_TRUE(chosen->ends_with(" 1.00")) << *chosen;
    EXPECT_FALSE(harness.isVisible("OK"));
    EXPECT_FALSE(harness.isVisible("Cancel"));
    harness.press(Key::kEscape);
    EXPECT_TRUE(session.observer().waitUntil([this] { return !harness.isVisible("QColorDialog"); }));
    EXPECT_FALSE(harness.hasReported("well")) << "the colour stays";
}

TEST_F(FormPointer, the_colour_dialog_follows_a_colour_from_elsewhere_and_reports_only_what_the_user_chooses)
{
    openDialog();
    harness.send("color 0.2 0.4 0.6");
    EXPECT_TRUE(session.observer().waitUntil([this] { return harness.dialogColor() == "#336699"; }));
    harness.press(Key::kEscape);
    EXPECT_TRUE(session.observer().waitUntil([this] { return !harness.isVisible("QColorDialog"); }));
    EXPECT_FALSE(harness.hasReported("well"));
}

TEST_F(FormPointer, the_colour_dialog_closes_with_its_window)
{
    openDialog();
    harness.send("close");
    EXPECT_TRUE(session.observer().waitUntil([this] { return session.observer().clientList().empty(); }));
}

TEST_F(FormPointer, a_value_beyond_the_end_of_a_slider_can_be_set_to_the_end)
{
    harness.send("width 30");
    const ScreenRect slider = harness.place("slider");
    session.input().moveTo(slider.right() - 2, slider.y + slider.height / 2);
    session.input().press();
    session.input().release();
    EXPECT_TRUE(harness.reports("slider 12.00"));
    harness.send("width 30");
    ASSERT_TRUE(harness.tabTo("slider"));
    harness.press(Key::kEnd);
    EXPECT_TRUE(harness.reports("slider 12.00"));
    harness.press(Key::kEnd);
    harness.press(Key::kRight);
    EXPECT_FALSE(harness.hasReported("slider"));
}

TEST_F(FormPointer, the_form_is_read_again_when_its_window_gets_the_focus)
{
    ASSERT_TRUE(harness.reports("appeared"));
    const auto other = session.makeClient();
    ASSERT_TRUE(other->showFocused());
    // Qt takes the loss of the focus in only after a while.
    ASSERT_TRUE(session.observer().waitUntil([this] { return harness.focused().empty(); }));
    EXPECT_FALSE(harness.hasReported("appeared"));
    harness.send("show");
    EXPECT_TRUE(harness.reports("appeared"));
}

TEST_F(FormPointer, a_disabled_colour_well_opens_nothing)
{
    harness.send("well off");
    ASSERT_TRUE(harness.click("well"));
    EXPECT_FALSE(harness.isVisible("QColorDialog"));
}

TEST_F(FormPointer, choosing_an_option_adds_its_rows)
{
    ASSERT_TRUE(harness.click("picker"));
    ASSERT_TRUE(harness.click("Only selected apps"));
    EXPECT_TRUE(harness.reports("picker 1"));
    EXPECT_TRUE(harness.isVisible("app-openbox"));
    EXPECT_TRUE(harness.isVisible("choose"));
}

TEST_F(FormPointer, a_menu_item_with_an_ampersand_is_performed_and_adds_a_row)
{
    harness.send("scope 1");
    ASSERT_TRUE(harness.click("running"));
    ASSERT_TRUE(harness.click("Terminal & Co"));
    EXPECT_TRUE(harness.reports("added Terminal & Co"));
    EXPECT_TRUE(harness.isVisible("app-Terminal & Co"));
}

TEST_F(FormPointer, a_new_form_calls_no_callback)
{
    harness.send("width 9");
    harness.send("scope 1");
    harness.send("well off");
    for (const char* news : {"slider", "picker", "well", "toggle"})
        EXPECT_FALSE(harness.hasReported(news)) << news;
}

TEST_F(FormPointer, the_wheel_over_a_slider_does_not_move_it)
{
    const ScreenRect slider = harness.place("slider");
    session.input().moveTo(slider.x + slider.width / 2, slider.y + slider.height / 2);
    session.input().press(XCB_BUTTON_INDEX_5);
    session.input().release(XCB_BUTTON_INDEX_5);
    EXPECT_FALSE(harness.hasReported("slider"));
}

} // namespace
} // namespace haloric
