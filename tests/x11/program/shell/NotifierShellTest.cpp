// The menu in a StatusNotifier tray, where the panel shows it.
#include "x11/program/shell/Shell.h"
#include "x11/qt/NotifierHost.h"

namespace haloric {
namespace {

class NotifierShell : public Shell {
protected:
    void SetUp() override
    {
        client = openFocused({.content = {700, 600, 500, 300}});
        haloric = std::make_unique<HaloricProcess>(session, kStill, std::vector<std::string>{},
                                                   Environment{{"DBUS_SESSION_BUS_ADDRESS", tray.address()}});
        ASSERT_TRUE(tray.waitForItem()) << log(); // the tray replies to the program only within this call
        ASSERT_TRUE(waitForBorder(*client)) << log();
        shell.emplace(session, panel, *haloric);
    }

    NotifierHost tray{session.environment(), NotifierHost::Presence::present};
};
INSTANTIATE_TEST_SUITE_P(Desktops, NotifierShell, testing::Values(kOpenboxPicom), nameOf);

TEST_P(NotifierShell, an_effect_is_turned_off_and_its_check_mark_is_removed)
{
    ASSERT_TRUE(tray.waitForItem("Border", [](const auto& item) { return item.isOn; }));
    tray.click("Border");
    EXPECT_TRUE(waitForStored([](const Settings& now) { return !now.borderEnabled; }));
    EXPECT_TRUE(tray.waitForItem("Border", [](const auto& item) { return item.hasToggle && !item.isOn; }));
    const ScreenRect frame = client->visibleFrame();
    EXPECT_TRUE(waitForOtherPixel(frame.x + frame.width / 2, frame.bottom() - 2, kAccent));
}

TEST_P(NotifierShell, a_preset_the_settings_and_quit_are_activated)
{
    tray.click("Green");
    EXPECT_TRUE(waitForStored([](const Settings& now) { return pixelOf(now.accent) == 0x29CC40; }));
    tray.click("Settings…");
    EXPECT_TRUE(shell->waitUntilActive());
    tray.click("Quit Haloric");
    EXPECT_EQ(haloric->process().waitForExit(), 0) << log();
}

} // namespace
} // namespace haloric
