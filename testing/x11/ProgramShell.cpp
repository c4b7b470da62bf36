#include "testing/x11/ProgramShell.h"

#include "testing/x11/Key.h"

namespace haloric {

std::vector<ScreenRect> ProgramShell::menus()
{
    DesktopObserver& observer = m_session.observer();
    std::vector<ScreenRect> menus;
    for (const RootChild& child : m_haloric.overlays()) {
        if (observer.text(child.window, "WM_CLASS").starts_with("com.kestrow.haloric")) // not the overlays' class
            menus.push_back(child.geometry);
    }
    return menus;
}

std::optional<ScreenRect> ProgramShell::waitForMenu(std::size_t count)
{
    ScreenRect menu;
    ScreenImage last;
    const auto isPainted = [&] {
        const auto open = menus();
        if (open.size() != count)
            return false;
        menu = open.back();
        ScreenImage now = m_session.observer().capture(menu);
        const bool isStill = now == last;
        last = std::move(now);
        return isStill && last.isPainted();
    };
    if (m_session.observer().waitUntil(isPainted))
        return menu;
    m_session.keepFailure("no-menu");
    return std::nullopt;
}

std::optional<ScreenRect> ProgramShell::openMenu() { return m_panel.clickIcon() ? waitForMenu() : std::nullopt; }

bool ProgramShell::moveInMenu(const ScreenRect& menu, std::uint32_t key, int times)
{
    for (int time = 0; time < times; ++time) {
        const ScreenImage before = m_session.observer().capture(menu);
        press(key);
        if (!m_session.observer().waitUntil([&] { return m_session.observer().capture(menu) != before; })) {
            m_session.keepFailure("menu-does-not-move");
            return false;
        }
    }
    return true;
}

bool ProgramShell::choose(MenuEntry entry)
{
    const auto menu = openMenu();
    if (!menu || !moveInMenu(*menu, Key::kDown, static_cast<int>(entry)))
        return false;
    press(Key::kReturn);
    return true;
}

bool ProgramShell::choosePreset(int index)
{
    const auto menu = openMenu();
    if (!menu || !moveInMenu(*menu, Key::kDown, static_cast<int>(MenuEntry::accentColor)))
        return false;
    press(Key::kRight);
    const auto colors = waitForMenu(2);
    if (!colors || !moveInMenu(*colors, Key::kDown, index))
        return false;
    press(Key::kReturn);
    return true;
}

bool ProgramShell::openSettings() { return choose(MenuEntry::settings) && waitUntilActive(); }

bool ProgramShell::closeSettings()
{
    m_session.input().chord({Key::kControl, 'w'});
    return m_session.observer().waitUntil([this] { return window() == XCB_WINDOW_NONE; });
}

xcb_window_t ProgramShell::window(const std::string& title)
{
    for (const xcb_window_t window : m_session.observer().clientList()) {
        if (m_session.observer().text(window, "_NET_WM_NAME") == title &&
            m_session.observer().value(window, "_NET_WM_PID") == static_cast<std::uint32_t>(m_haloric.pid()))
            return window;
    }
    return XCB_WINDOW_NONE;
}

bool ProgramShell::waitUntilActive(const std::string& title)
{
    DesktopObserver& observer = m_session.observer();
    // The window manager publishes the active window before the X server has moved the keyboard focus.
    const auto isActive = [&] {
        const xcb_window_t wanted = window(title);
        return wanted != XCB_WINDOW_NONE && observer.activeWindow() == wanted &&
               observer.topLevelOf(observer.focusedWindow()) == observer.topLevelOf(wanted);
    };
    if (observer.waitUntil(isActive))
        return true;
    m_session.keepFailure("not-active");
    return false;
}

ScreenRect ProgramShell::frame(const std::string& title)
{
    return m_session.observer().rectOnRoot(m_session.observer().topLevelOf(window(title)));
}

ScreenRect ProgramShell::content(const std::string& title) { return m_session.observer().rectOnRoot(window(title)); }

} // namespace haloric
