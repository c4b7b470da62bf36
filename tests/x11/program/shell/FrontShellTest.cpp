// Windows that are opened from a panel's menu come to the front, although the program itself has had no input: under
// window managers that keep other windows from taking the focus.
#include "support/LoopbackServer.h"
#include "x11/program/shell/Shell.h"
#include "x11/qt/NotifierHost.h"

#include <filesystem>
#include <fstream>

namespace haloric {
namespace {

class FrontShell : public Shell {
protected:
    void start(const Environment& added = {})
    {
        client = openFocused({.content = {200, 150, 1400, 800}, .application = TestClient::Application::ownOne});
        // Later input to the focused window makes the program's own input old.
        session.input().clickAt(900, 500);
        press('a');
        Environment environment{{"DBUS_SESSION_BUS_ADDRESS", tray.address()}};
        environment.insert(added.begin(), added.end());
        haloric = std::make_unique<HaloricProcess>(session, kStill, std::vector<std::string>{}, environment,
                                                   bundle->program());
        shell.emplace(session, panel, *haloric);
    }

    // The user works in the focused window, then chooses the item in the panel.
    void choose(const std::string& item)
    {
        ASSERT_TRUE(client->focus());
        press('b');
        tray.click(item);
    }

    // Whether the window has the focus and is above the window that had it.
    testing::AssertionResult isInFront(const std::string& title)
    {
        DesktopObserver& observer = session.observer();
        const bool isAbove = shell->waitUntilActive(title) && observer.waitUntil([&] {
            return observer.stackingIndexOf(observer.topLevelOf(shell->window(title))) >
                   observer.stackingIndexOf(observer.topLevelOf(client->window()));
        });
        return isAbove ? testing::AssertionSuccess()
                       : testing::AssertionFailure() << "\"" << title << "\" is not in front\n"
                                                     << log();
    }

    LoopbackServer server{[](const std::string&) {
        return LoopbackServer::feed(
            R"(<rss xmlns:s="http://www.andymatuschak.org/xml-namespaces/sparkle"><channel/></rss>)");
    }};
    NotifierHost tray{session.environment(), NotifierHost::Presence::present};
};
INSTANTIATE_TEST_SUITE_P(Desktops, FrontShell,
                         testing::Values(Pairing{"xfwm4", WindowManager::xfwm4, Compositor::none},
                                         Pairing{"metacity", WindowManager::metacity, Compositor::none},
                                         Pairing{"mutter", WindowManager::mutter, Compositor::none}),
                         nameOf);

TEST_P(FrontShell, settings_about_and_the_answer_of_a_check_for_updates)
{
    install({{"SUFeedURL", server.address("/feed.xml")}});
    start();
    ASSERT_TRUE(tray.waitForItem()) << log();
    choose("About Haloric");
    EXPECT_TRUE(isInFront("About Haloric"));
    choose("Settings…");
    EXPECT_TRUE(isInFront(kSettingsTitle));
    choose("Check for Updates…");
    EXPECT_TRUE(isInFront("Haloric"));
}

TEST_P(FrontShell, the_error_of_the_login_item)
{
    install();
    const std::filesystem::path config = session.environment().at("XDG_CONFIG_HOME");
    std::filesystem::create_directories(config);
    std::ofstream(config / "autostart") << "a file in the way of the folder";
    start();
    ASSERT_TRUE(tray.waitForItem()) << log();
    choose("Launch at Login");
    EXPECT_TRUE(isInFront("Haloric"));
}

TEST_P(FrontShell, the_alert_in_a_wayland_session)
{
    install();
    start({{"XDG_SESSION_TYPE", "wayland"}});
    EXPECT_TRUE(isInFront("Haloric"));
    ASSERT_TRUE(tray.waitForItem()) << log();
    choose("Settings…");
    EXPECT_TRUE(isInFront(kSettingsTitle)) << "the alert blocks nothing";
    EXPECT_EQ(haloric->stop(), 0);
    EXPECT_NE(log().find("haloric: this is a Wayland session"), std::string::npos);
}

} // namespace
} // namespace haloric
