// The program's user interface as a user reaches it: the icon in the tray, the menu, its windows. The menu's items are
// known by their order, the windows by their titles; nothing is asked of the program itself.
#pragma once

#include "testing/x11/HaloricProcess.h"
#include "testing/x11/TrayPanel.h"

#include <optional>
#include <string>

namespace haloric {

// The items of the menu that can be chosen, as the arrow downward passes them. Those after the settings are so in an
// installed program that has a feed of updates.
enum class MenuEntry {
    border = 1,
    glow,
    tint,
    dim,
    pulse,
    accentColor,
    settings,
    launchAtLogin,
    about,
    checkForUpdates
};

inline constexpr const char* kSettingsTitle = "Haloric Settings";

class ProgramShell {
public:
    // All outlive it.
    ProgramShell(X11Session& session, TrayPanel& panel, HaloricProcess& haloric)
        : m_session(session),
          m_panel(panel),
          m_haloric(haloric)
    {
    }

    // Clicks the icon and waits until the menu is on the screen and painted; its place, or none.
    std::optional<ScreenRect> openMenu();

    // Waits until so many menus are open and the last one is painted: its place, or none.
    std::optional<ScreenRect> waitForMenu(std::size_t count = 1);

    // Presses a key that moves the choice in an open menu, and waits until that is seen.
    [[nodiscard]] bool moveInMenu(const ScreenRect& menu, std::uint32_t key, int times = 1);

    // Opens the menu and chooses an item by the keyboard.
    [[nodiscard]] bool choose(MenuEntry entry);

    // The same for an item of the submenu of colours; the first is 0.
    [[nodiscard]] bool choosePreset(int index);

    // Opens the settings window by the menu, and waits until it is the active one.
    [[nodiscard]] bool openSettings();

    // The listed window of the program with that title; none when there is no such window.
    xcb_window_t window(const std::string& title = kSettingsTitle);
    [[nodiscard]] bool waitUntilActive(const std::string& title = kSettingsTitle);

    ScreenRect frame(const std::string& title = kSettingsTitle);   // with the decoration
    ScreenRect content(const std::string& title = kSettingsTitle); // the inside; empty without such a window

private:
    std::vector<ScreenRect> menus(); // the places of all open menus, bottom to top
    void press(std::uint32_t key) { m_session.input().chord({key}); }

    X11Session& m_session;
    TrayPanel& m_panel;
    HaloricProcess& m_haloric;
};

} // namespace haloric
