#include "x11/qt/FormHarness.h"
#include "x11/qt/NotifierHost.h"

namespace haloric {
namespace {

struct NotifierItem : testing::Test {
    X11Session session{WindowManager::openbox};
    std::optional<NotifierHost> tray;
    std::optional<FormHarness> toy;

    void start(NotifierHost::Presence presence)
    {
        tray.emplace(session.environment(), presence);
        toy.emplace(session, Environment{{"DBUS_SESSION_BUS_ADDRESS", tray->address()}});
        toy->tell("tray");
    }
};

TEST_F(NotifierItem, the_item_has_a_picture_a_tooltip_and_the_whole_menu)
{
    start(NotifierHost::Presence::present);
    ASSERT_TRUE(tray->waitForItem());
    EXPECT_TRUE(tray->hasPicture());
    EXPECT_EQ(tray->toolTip(), "Haloric");

    const auto heading = tray->item("Haloric");
    ASSERT_TRUE(heading);
    EXPECT_FALSE(heading->isEnabled);
    const auto border = tray->item("Border");
    ASSERT_TRUE(border);
    EXPECT_TRUE(border->hasToggle && border->isOn);
    const auto dim = tray->item("Dim other windows");
    ASSERT_TRUE(dim);
    EXPECT_TRUE(dim->hasToggle && !dim->isOn);
    const auto settings = tray->item("Settings…");
    ASSERT_TRUE(settings);
    EXPECT_FALSE(settings->hasToggle);
    EXPECT_EQ(settings->shortcut, "Control+,");
    const auto teal = tray->item("Teal");
    ASSERT_TRUE(teal);
    EXPECT_TRUE(teal->hasIcon);
    const auto hidden = tray->item("Grant Accessibility Permission…");
    EXPECT_TRUE(!hidden || !hidden->isVisible);
}

TEST_F(NotifierItem, an_item_of_the_menu_is_performed)
{
    start(NotifierHost::Presence::present);
    ASSERT_TRUE(tray->waitForItem());
    tray->click("Teal");
    EXPECT_TRUE(toy->hears("menu Teal"));
}

TEST_F(NotifierItem, what_changes_in_the_menu_is_seen_by_the_panel)
{
    start(NotifierHost::Presence::present);
    ASSERT_TRUE(tray->waitForItem());
    toy->tell("check Border");
    toy->tell("check Dim other windows");
    toy->tell("reveal Grant Accessibility Permission…");
    EXPECT_TRUE(tray->waitForItem("Border", [](const auto& item) { return item.hasToggle && !item.isOn; }));
    EXPECT_TRUE(tray->waitForItem("Dim other windows", [](const auto& item) { return item.isOn; }));
    EXPECT_TRUE(tray->waitForItem("Grant Accessibility Permission…", [](const auto& item) { return item.isVisible; }));
}

TEST_F(NotifierItem, a_mark_that_the_owner_does_not_change_stays)
{
    start(NotifierHost::Presence::present);
    ASSERT_TRUE(tray->waitForItem());
    tray->click("Border");
    EXPECT_TRUE(toy->hears("menu Border"));
    EXPECT_TRUE(tray->waitForItem("Border", [](const auto& item) { return item.isOn; }));
}

TEST_F(NotifierItem, a_panel_that_only_activates_gets_the_menu_opened)
{
    start(NotifierHost::Presence::present);
    ASSERT_TRUE(tray->waitForItem());
    tray->activate();
    EXPECT_TRUE(toy->hears("menu needs update"));
    EXPECT_TRUE(session.observer().waitUntil([this] { return toy->isVisible("Border"); }));
}

TEST_F(NotifierItem, an_item_appears_in_a_tray_that_comes_later)
{
    start(NotifierHost::Presence::later);
    EXPECT_EQ(toy->focused(), "");
    tray->appear();
    EXPECT_TRUE(tray->waitForItem());
}

} // namespace
} // namespace haloric
