// A StatusNotifier tray that is on the session bus but does not reply, as one that hangs.
#include "x11/program/shell/Shell.h"
#include "x11/qt/NotifierHost.h"

namespace haloric {
namespace {

class SilentTray : public Shell {
protected:
    void SetUp() override
    {
        client = openFocused({.content = {700, 600, 500, 300}});
        ASSERT_TRUE(session.observer().waitUntil([this] { return session.observer().hasTray(); }));
        haloric = std::make_unique<HaloricProcess>(session, kStill, std::vector<std::string>{},
                                                   Environment{{"DBUS_SESSION_BUS_ADDRESS", tray.address()}});
    }

    NotifierHost tray{session.environment(),
                      NotifierHost::Presence::present}; // replies only within calls of this object
};
INSTANTIATE_TEST_SUITE_P(Desktops, SilentTray, testing::Values(kOpenboxPicom), nameOf);

TEST_P(SilentTray, it_delays_neither_the_first_highlight_nor_later_ones)
{
    ASSERT_TRUE(waitForBorder(*client)) << log();
    const auto next = openFocused({.content = {200, 200, 400, 300}});
    EXPECT_TRUE(waitForBorder(*next)) << log();
}

TEST_P(SilentTray, it_gets_the_icon_once_it_replies)
{
    ASSERT_TRUE(waitForBorder(*client)) << log();
    EXPECT_TRUE(tray.waitForItem());
}

TEST_P(SilentTray, the_xembed_tray_has_the_icon_until_it_replies)
{
    ASSERT_TRUE(waitForBorder(*client)) << log();
    EXPECT_GT(panel.findIcon().width, 0);
    EXPECT_TRUE(tray.waitForItem());
    EXPECT_TRUE(tray.waitUntil([this] { return !panel.hasIcon(); }));
}

TEST_P(SilentTray, the_xembed_tray_has_the_icon_again_once_it_has_left_the_bus)
{
    ASSERT_TRUE(tray.waitForItem());
    ASSERT_TRUE(tray.waitUntil([this] { return !panel.hasIcon(); }));
    tray.disappear();
    EXPECT_GT(panel.findIcon().width, 0);
}

} // namespace
} // namespace haloric
