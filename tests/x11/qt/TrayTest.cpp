#include "testing/x11/TrayPanel.h"
#include "x11/qt/FormHarness.h"

namespace haloric {
namespace {

struct Tray : testing::Test {
    X11Session session{WindowManager::openbox};
    std::optional<TrayPanel> panel;
    std::optional<FormHarness> harness;

    void openMenu(std::uint8_t button)
    {
        EXPECT_TRUE(panel->clickIcon(button));
        EXPECT_TRUE(harness->reports("menu needs update"));
    }
};

TEST_F(Tray, a_right_click_opens_the_menu_too)
{
    panel.emplace(session);
    harness.emplace(session);
    harness->send("tray");
    openMenu(XCB_BUTTON_INDEX_3);
    ASSERT_TRUE(harness->click("Settings…"));
    EXPECT_TRUE(harness->reports("menu Settings…"));
}

TEST_F(Tray, the_menu_works_by_keys)
{
    panel.emplace(session);
    harness.emplace(session);
    harness->send("tray");
    openMenu(XCB_BUTTON_INDEX_1);
    ASSERT_TRUE(session.observer().waitUntil([this] { return harness->isVisible("Border"); }));
    harness->press(Key::kUp);
    harness->press(Key::kReturn);
    EXPECT_TRUE(harness->reports("menu Quit Haloric"));
}

TEST_F(Tray, shortcuts_work_while_the_menu_is_open)
{
    panel.emplace(session);
    harness.emplace(session);
    harness->send("tray");
    openMenu(XCB_BUTTON_INDEX_1);
    ASSERT_TRUE(session.observer().waitUntil([this] { return harness->isVisible("Border"); }));
    session.input().chord({Key::kControl, ','});
    EXPECT_TRUE(harness->reports("menu Settings…"));
    EXPECT_TRUE(session.observer().waitUntil([this] { return !harness->isVisible("Border"); }));
}

TEST_F(Tray, disabled_and_hidden_items_do_nothing)
{
    panel.emplace(session);
    harness.emplace(session);
    harness->send("tray");
    openMenu(XCB_BUTTON_INDEX_1);
    ASSERT_TRUE(harness->click("Launch at Login"));
    EXPECT_FALSE(harness->hasReported("menu Launch"));
    EXPECT_FALSE(harness->isVisible("Grant Accessibility Permission…"));
}

TEST_F(Tray, a_disabled_item_has_a_tooltip)
{
    panel.emplace(session);
    harness.emplace(session);
    harness->send("tray");
    openMenu(XCB_BUTTON_INDEX_1);
    ASSERT_TRUE(session.observer().waitUntil([this] { return harness->isVisible("Launch at Login"); }));
    EXPECT_EQ(harness->toolTip("Launch at Login"), "Available when running from Haloric.app");
    EXPECT_EQ(harness->toolTip("Border"), "");
}

TEST_F(Tray, the_item_appears_when_a_tray_starts_later)
{
    harness.emplace(session);
    harness->send("tray");
    EXPECT_EQ(harness->focused(), "");
    panel.emplace(session);
    EXPECT_GT(panel->findIcon().width, 0);
}

TEST_F(Tray, the_item_appears_again_after_the_tray_restarted)
{
    panel.emplace(session);
    harness.emplace(session);
    harness->send("tray");
    ASSERT_GT(panel->findIcon().width, 0);
    ASSERT_TRUE(panel->restart());
    EXPECT_GT(panel->findIcon().width, 0);
}

} // namespace
} // namespace haloric
