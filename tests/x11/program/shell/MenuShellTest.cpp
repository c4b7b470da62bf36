// The icon in the tray and its menu.
#include "testing/x11/Key.h"
#include "x11/program/shell/Shell.h"

#include <filesystem>
#include <fstream>

namespace haloric {
namespace {

class MenuShell : public Shell {
protected:
    void SetUp() override
    {
        startInTray();
        // The window manager has painted the title bar by then.
        ASSERT_TRUE(waitForBorder(*client)) << log();
    }

    ScreenRect frame() { return client->visibleFrame(); }
    int middleX() { return frame().x + frame().width / 2; }
};
INSTANTIATE_TEST_SUITE_P(Desktops, MenuShell, testing::Values(kOpenboxPicom), nameOf);

TEST_P(MenuShell, border_and_glow_are_turned_off_and_on)
{
    const int borderY = frame().bottom() - 2;
    const int glowY = frame().bottom() + 2;
    ASSERT_TRUE(shell->choose(MenuEntry::border));
    EXPECT_TRUE(waitForStored([](const Settings& now) { return !now.borderEnabled; }));
    EXPECT_TRUE(waitForOtherPixel(middleX(), borderY, kAccent));
    ASSERT_TRUE(shell->choose(MenuEntry::border));
    EXPECT_TRUE(waitForStored([](const Settings& now) { return now.borderEnabled; }));
    EXPECT_TRUE(waitForBorder(*client));
    ASSERT_TRUE(shell->choose(MenuEntry::glow));
    EXPECT_TRUE(waitForStored([](const Settings& now) { return !now.glowEnabled; }));
    EXPECT_TRUE(waitForPixel(middleX(), glowY, X11Session::kDesktopColor));
    ASSERT_TRUE(shell->choose(MenuEntry::glow));
    EXPECT_TRUE(waitForOtherPixel(middleX(), glowY, X11Session::kDesktopColor));
}

TEST_P(MenuShell, tint_dimming_and_pulse_are_turned_on)
{
    const int titleY = (frame().y + client->content().y) / 2;
    const Pixel title = pixelAt(frame().right() - 120, titleY);
    ASSERT_TRUE(shell->choose(MenuEntry::tint));
    EXPECT_TRUE(waitForStored([](const Settings& now) { return now.tintEnabled; }));
    EXPECT_TRUE(waitForPixel(frame().right() - 120, titleY, blended(kAccent, title, 0.25)));
    ASSERT_TRUE(shell->choose(MenuEntry::dim));
    EXPECT_TRUE(waitForStored([](const Settings& now) { return now.dimEnabled; }));
    EXPECT_TRUE(waitForPixel(1500, 300, blended(0, X11Session::kDesktopColor, 0.35)));
    ASSERT_TRUE(shell->choose(MenuEntry::pulse));
    EXPECT_TRUE(waitForStored([](const Settings& now) { return now.pulseEnabled; }));
}

TEST_P(MenuShell, a_preset_colours_the_highlight)
{
    constexpr int kRed = 3;
    ASSERT_TRUE(shell->choosePreset(kRed));
    EXPECT_TRUE(waitForStored([](const Settings& now) { return pixelOf(now.accent) == 0xFF3B30; }));
    EXPECT_TRUE(waitForPixel(middleX(), frame().bottom() - 2, 0xFF3B30));
}

TEST_P(MenuShell, the_highlighted_window_keeps_the_focus_while_the_menu_is_open)
{
    ASSERT_TRUE(shell->openMenu());
    EXPECT_TRUE(waitForBorder(*client));
    session.input().chord({Key::kEscape});
    EXPECT_TRUE(session.observer().waitUntil([this] { return haloric->overlays().size() == 1; }));
    EXPECT_EQ(session.observer().activeWindow(), client->window());
}

TEST_P(MenuShell, the_last_item_ends_the_program_and_nothing_remains)
{
    const auto menu = shell->openMenu();
    ASSERT_TRUE(menu);
    session.input().clickAt(menu->x + menu->width / 2, menu->bottom() - 12);
    EXPECT_EQ(haloric->process().waitForExit(), 0) << log();
    EXPECT_TRUE(haloric->waitForNothing());
    EXPECT_TRUE(waitForPixel(middleX(), frame().bottom() + 2, X11Session::kDesktopColor));
}

// An installed program has the items below the settings.
class InstalledMenuShell : public Shell {
protected:
    void SetUp() override
    {
        install({{"SUFeedURL", "http://127.0.0.1:9/feed.xml"}});
        startInTray();
    }

    std::filesystem::path autostart()
    {
        return std::filesystem::path(session.environment().at("XDG_CONFIG_HOME")) / "autostart";
    }
    [[nodiscard]] bool waitForEntry(bool isWanted)
    {
        return session.observer().waitUntil(
            [&] { return std::filesystem::exists(autostart() / "com.kestrow.haloric.desktop") == isWanted; });
    }
    [[nodiscard]] bool waitUntilGone(const std::string& title)
    {
        return session.observer().waitUntil([&] { return shell->window(title) == XCB_WINDOW_NONE; });
    }
};
INSTANTIATE_TEST_SUITE_P(Desktops, InstalledMenuShell, testing::Values(kOpenboxPicom), nameOf);

TEST_P(InstalledMenuShell, about_opens_its_panel_each_time)
{
    for (int time = 0; time < 2; ++time) {
        ASSERT_TRUE(shell->choose(MenuEntry::about));
        ASSERT_TRUE(shell->waitUntilActive("About Haloric")) << log();
        press(Key::kEscape);
        EXPECT_TRUE(waitUntilGone("About Haloric"));
    }
}

TEST_P(InstalledMenuShell, launch_at_login_writes_the_entry_and_removes_it)
{
    ASSERT_TRUE(shell->choose(MenuEntry::launchAtLogin));
    EXPECT_TRUE(waitForEntry(true));
    ASSERT_TRUE(shell->choose(MenuEntry::launchAtLogin));
    EXPECT_TRUE(waitForEntry(false));
}

TEST_P(InstalledMenuShell, launch_at_login_that_fails_shows_an_alert_and_can_be_tried_again)
{
    std::ofstream(autostart()) << "not a folder";
    ASSERT_TRUE(shell->choose(MenuEntry::launchAtLogin));
    ASSERT_TRUE(shell->waitUntilActive("Haloric")) << log();
    press(Key::kReturn);
    ASSERT_TRUE(waitUntilGone("Haloric"));
    std::filesystem::remove(autostart());
    ASSERT_TRUE(shell->choose(MenuEntry::launchAtLogin));
    EXPECT_TRUE(waitForEntry(true));
}

} // namespace
} // namespace haloric
