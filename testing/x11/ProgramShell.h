// The program's user interface as a user reaches it: the icon in the tray, the menu, its windows. Menu items are found
// by their order, windows by their titles. Rectangles are root coordinates.
#pragma once

#include "testing/x11/HaloricProcess.h"
#include "testing/x11/TrayPanel.h"

#include <optional>
#include <string>

namespace haloric {

// The menu's enabled items; the value is the number of presses of the down arrow. Those after `settings` hold for an
// installed program with an update feed.
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
    // All three outlive the object.
    ProgramShell(X11Session& session, TrayPanel& panel, HaloricProcess& haloric)
        : m_session(session),
          m_panel(panel),
          m_haloric(haloric)
    {
    }

    // Clicks the icon and waits until the menu is painted. Returns its frame; no value after a timeout.
    std::optional<ScreenRect> openMenu();

    // Waits until `count` menus are open and the topmost is painted. Returns its frame; no value after a timeout.
    std::optional<ScreenRect> waitForMenu(std::size_t count = 1);

    // Presses a key that moves the selection of an open menu, and waits each time until the picture changes.
    [[nodiscard]] bool moveInMenu(const ScreenRect& menu, std::uint32_t key, int times = 1);

    // Opens the menu and activates an item by the keyboard.
    [[nodiscard]] bool choose(MenuEntry entry);

    // Opens the submenu of colours and activates an item; the first is 0.
    [[nodiscard]] bool choosePreset(int index);

    // Opens the settings window by the menu, and waits until it is active.
    [[nodiscard]] bool openSettings();

    // Closes it by the keyboard, and waits until the window manager does not list it.
    [[nodiscard]] bool closeSettings();

    // The listed window of the program with that title; XCB_WINDOW_NONE if there is none.
    xcb_window_t window(const std::string& title = kSettingsTitle);
    [[nodiscard]] bool waitUntilActive(const std::string& title = kSettingsTitle);

    ScreenRect frame(const std::string& title = kSettingsTitle);   // with the decoration
    ScreenRect content(const std::string& title = kSettingsTitle); // the inside; empty without such a window

private:
    std::vector<ScreenRect> menus(); // the frames of all open menus, bottom to top
    void press(std::uint32_t key) { m_session.input().chord({key}); }

    X11Session& m_session;
    TrayPanel& m_panel;
    HaloricProcess& m_haloric;
};

} // namespace haloric
