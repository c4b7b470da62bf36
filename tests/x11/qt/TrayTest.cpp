#include "testing/x11/TrayPanel.h"
#include "x11/qt/FormHarness.h"

namespace haloric {
namespace {

struct Tray : testing::Test {
    X11Session session{WindowManager::openbox};
    std::optional<TrayPanel> panel;
    std::optional<FormHarness> toy;

    void openMenu(std::uint8_t button)
    {
        EXPECT_TRUE(panel->clickIcon(button));
        EXPECT_TRUE(toy->hears("menu needs update"));
    }
};

TEST_F(Tray, an_item_of_the_menu_is_performed_by_a_left_click)
{
    panel.emplace(session);
    toy.emplace(session);
    toy->tell("tray");
    openMenu(XCB_BUTTON_INDEX_1);
    ASSERT_TRUE(toy->click("Border"));
    EXPECT_TRUE(toy->hears("menu Border"));
}

TEST_F(Tray, a_right_click_opens_the_menu_as_well)
{
    panel.emplace(session);
    toy.emplace(session);
    toy->tell("tray");
    openMenu(XCB_BUTTON_INDEX_3);
    ASSERT_TRUE(toy->click("Settings…"));
    EXPECT_TRUE(toy->hears("menu Settings…"));
}

TEST_F(Tray, the_menu_is_used_by_keys)
{
    panel.emplace(session);
    toy.emplace(session);
    toy->tell("tray");
    openMenu(XCB_BUTTON_INDEX_1);
    ASSERT_TRUE(session.observer().waitUntil([this] { return toy->isVisible("Border"); }));
    toy->press(Key::kUp);
    toy->press(Key::kReturn);
    EXPECT_TRUE(toy->hears("menu Quit Haloric"));
}

TEST_F(Tray, the_keys_that_the_menu_shows_work_while_it_is_open)
{
    panel.emplace(session);
    toy.emplace(session);
    toy->tell("tray");
    openMenu(XCB_BUTTON_INDEX_1);
    ASSERT_TRUE(session.observer().waitUntil([this] { return toy->isVisible("Border"); }));
    session.input().chord({Key::kControl, ','});
    EXPECT_TRUE(toy->hears("menu Settings…"));
    EXPECT_TRUE(session.observer().waitUntil([this] { return !toy->isVisible("Border"); }));
}

TEST_F(Tray, a_preset_is_chosen_from_the_submenu)
{
    panel.emplace(session);
    toy.emplace(session);
    toy->tell("tray");
    openMenu(XCB_BUTTON_INDEX_1);
    ASSERT_TRUE(toy->click("Accent color"));
    ASSERT_TRUE(toy->click("Teal"));
    EXPECT_TRUE(toy->hears("menu Teal"));
}

TEST_F(Tray, disabled_and_hidden_items_do_nothing)
{
    panel.emplace(session);
    toy.emplace(session);
    toy->tell("tray");
    openMenu(XCB_BUTTON_INDEX_1);
    ASSERT_TRUE(toy->click("Launch at Login"));
    EXPECT_FALSE(toy->hasSaid("menu Launch"));
    EXPECT_FALSE(toy->isVisible("Grant Accessibility Permission…"));
}

TEST_F(Tray, an_item_says_why_it_is_disabled)
{
    panel.emplace(session);
    toy.emplace(session);
    toy->tell("tray");
    openMenu(XCB_BUTTON_INDEX_1);
    ASSERT_TRUE(session.observer().waitUntil([this] { return toy->isVisible("Launch at Login"); }));
    EXPECT_EQ(toy->toolTip("Launch at Login"), "Available when running from Haloric.app");
    EXPECT_EQ(toy->toolTip("Border"), "");
}

TEST_F(Tray, an_item_appears_in_a_tray_that_comes_later)
{
    toy.emplace(session);
    toy->tell("tray");
    EXPECT_EQ(toy->focused(), "");
    panel.emplace(session);
    EXPECT_GT(panel->findIcon().width, 0);
}

TEST_F(Tray, an_item_appears_again_in_the_next_tray)
{
    panel.emplace(session);
    toy.emplace(session);
    toy->tell("tray");
    ASSERT_GT(panel->findIcon().width, 0);
    ASSERT_TRUE(panel->restart());
    EXPECT_GT(panel->findIcon().width, 0);
}

} // namespace
} // namespace haloric
