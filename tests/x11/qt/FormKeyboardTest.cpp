#include "x11/qt/FormHarness.h"

namespace haloric {
namespace {

struct FormKeyboard : testing::Test {
    X11Session session{WindowManager::openbox};
    FormHarness harness{session};

    void SetUp() override { ASSERT_TRUE(harness.showForm()); }

    bool isHidden()
    {
        return session.observer().waitUntil([this] { return !harness.isVisible("toggle"); });
    }
};

TEST_F(FormKeyboard, tab_moves_through_the_controls_from_top_to_bottom)
{
    harness.send("scope 1");
    for (const char* name : {"toggle", "well", "slider", "picker", "app-openbox", "app-python3.11", "running", "choose",
                             "Reset to Defaults", "Grant Accessibility…", "Restart", "Quit Haloric", "toggle"}) {
        EXPECT_TRUE(harness.waitForFocus(name)) << name << ", not " << harness.focused();
        harness.press(Key::kTab);
    }
}

TEST_F(FormKeyboard, arrows_move_a_slider_by_its_steps)
{
    ASSERT_TRUE(harness.tabTo("slider"));
    harness.press(Key::kRight);
    EXPECT_TRUE(harness.reports("slider 3.50"));
    harness.press(Key::kEnd);
    EXPECT_TRUE(harness.reports("slider 12.00"));
    harness.press(Key::kHome);
    EXPECT_TRUE(harness.reports("slider 1.00"));
}

TEST_F(FormKeyboard, a_value_outside_the_range_stays_until_the_user_moves_the_slider)
{
    harness.send("width 40");
    ASSERT_TRUE(harness.tabTo("slider"));
    EXPECT_FALSE(harness.hasReported("slider"));
    harness.press(Key::kLeft);
    EXPECT_TRUE(harness.reports("slider 11.50"));
}

TEST_F(FormKeyboard, a_colour_is_chosen_by_keys)
{
    ASSERT_TRUE(harness.tabTo("well"));
    harness.press(Key::kSpace);
    ASSERT_TRUE(
        session.observer().waitUntil([this] { return harness.focused() != "well" && !harness.focused().empty(); }));
    harness.press(Key::kEscape);
    EXPECT_TRUE(session.observer().waitUntil([this] { return !harness.isVisible("QColorDialog"); }));
    EXPECT_TRUE(harness.isVisible("well"));
}

TEST_F(FormKeyboard, options_menus_and_lists_work_by_keys)
{
    ASSERT_TRUE(harness.tabTo("picker"));
    harness.press(Key::kDown);
    EXPECT_TRUE(harness.reports("picker 1"));
    EXPECT_EQ(harness.focused(), "picker");
    ASSERT_TRUE(harness.tabTo("running"));
    harness.press(Key::kSpace);
    ASSERT_TRUE(session.observer().waitUntil([this] { return harness.isVisible("Editor"); }));
    harness.press(Key::kDown);
    harness.press(Key::kReturn);
    EXPECT_TRUE(harness.reports("added Editor"));
    ASSERT_TRUE(harness.tabTo("app-Editor"));
    harness.press(Key::kSpace);
    EXPECT_TRUE(harness.reports("removed Editor"));
}

TEST_F(FormKeyboard, the_focus_stays_when_the_form_changes_elsewhere)
{
    ASSERT_TRUE(harness.tabTo("slider"));
    harness.send("scope 1");
    EXPECT_EQ(harness.focused(), "slider");
    harness.send("scope 0");
    EXPECT_EQ(harness.focused(), "slider");
}

TEST_F(FormKeyboard, control_w_closes_the_window_and_it_reopens_at_its_position)
{
    const ScreenRect before = harness.place("toggle");
    session.input().chord({Key::kControl, 'w'});
    ASSERT_TRUE(isHidden());
    ASSERT_TRUE(harness.showForm());
    EXPECT_EQ(harness.place("toggle"), before);
}

TEST_F(FormKeyboard, a_section_is_notified_each_time_it_appears)
{
    EXPECT_TRUE(harness.reports("appeared"));
    harness.press(Key::kEscape);
    ASSERT_TRUE(isHidden());
    EXPECT_FALSE(harness.hasReported("appeared"));
    ASSERT_TRUE(harness.showForm());
    EXPECT_TRUE(harness.reports("appeared"));
}

TEST_F(FormKeyboard, controls_have_accessible_names_and_descriptions)
{
    harness.send("scope 1");
    EXPECT_THAT(harness.described("toggle"), testing::StartsWith("Hide highlight for full-screen windows"));
    EXPECT_EQ(harness.described("well"), "Accent color, #0a85ff");
    EXPECT_THAT(harness.described("slider"), testing::StartsWith("Width: 3.00 pt"));
    EXPECT_THAT(harness.described("picker"), testing::EndsWith("Apply to"));
    EXPECT_THAT(harness.described("app-openbox"), testing::StartsWith("Remove openbox"));
}

} // namespace
} // namespace haloric
