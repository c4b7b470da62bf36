#include "x11/qt/FormHarness.h"
#include "x11/qt/NotifierHost.h"

namespace haloric {
namespace {

struct NotifierItem : testing::Test {
    X11Session session{WindowManager::openbox};
    std::optional<NotifierHost> tray;
    std::optional<FormHarness> harness;

    void start(NotifierHost::Presence presence)
    {
        tray.emplace(session.environment(), presence);
        harness.emplace(session, Environment{{"DBUS_SESSION_BUS_ADDRESS", tray->address()}});
        harness->send("tray");
    }
};

TEST_F(NotifierItem, the_item_has_an_icon_a_tooltip_and_the_whole_menu)
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

TEST_F(NotifierItem, changes_of_the_menu_reach_the_panel)
{
    start(NotifierHost::Presence::present);
    ASSERT_TRUE(tray->waitForItem());
    harness->send("check Border");
    harness->send("check Dim other windows");
    harness->send("reveal Grant Accessibility Permission…");
    EXPECT_TRUE(tray->waitForItem("Border", [](const auto& item) { return item.hasToggle && !item.isOn; }));
    EXPECT_TRUE(tray->waitForItem("Dim other windows", [](const auto& item) { return item.isOn; }));
    EXPECT_TRUE(tray->waitForItem("Grant Accessibility Permission…", [](const auto& item) { return item.isVisible; }));
}

TEST_F(NotifierItem, a_click_keeps_a_mark_that_the_owner_does_not_change)
{
    start(NotifierHost::Presence::present);
    ASSERT_TRUE(tray->waitForItem());
    tray->click("Border");
    EXPECT_TRUE(harness->reports("menu Border"));
    EXPECT_TRUE(tray->waitForItem("Border", [](const auto& item) { return item.isOn; }));
}

TEST_F(NotifierItem, activating_the_item_opens_the_menu)
{
    start(NotifierHost::Presence::present);
    ASSERT_TRUE(tray->waitForItem());
    tray->activate();
    EXPECT_TRUE(harness->reports("menu needs update"));
    EXPECT_TRUE(session.observer().waitUntil([this] { return harness->isVisible("Border"); }));
}

TEST_F(NotifierItem, the_item_appears_when_a_tray_starts_later)
{
    start(NotifierHost::Presence::later);
    EXPECT_EQ(harness->focused(), "");
    tray->appear();
    EXPECT_TRUE(tray->waitForItem());
}

} // namespace
} // namespace haloric
