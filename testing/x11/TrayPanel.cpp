#include "testing/x11/TrayPanel.h"

#include <algorithm>

namespace haloric {

TrayPanel::TrayPanel(X11Session& session, std::vector<std::string> options)
    : m_session(session),
      m_options(std::move(options))
{
    start();
}

void TrayPanel::start()
{
    std::vector<std::string> command{"trayer",   "--edge", "top",         "--align", "left",
                                     "--height", "24",     "--widthtype", "request"};
    command.insert(command.end(), m_options.begin(), m_options.end());
    m_process = std::make_unique<ChildProcess>(
        ChildProcess::Options{command, m_session.environment(), m_session.server().folder() / "panel.log", -1});
}

bool TrayPanel::restart()
{
    m_process.reset();
    DesktopObserver& observer = m_session.observer();
    if (!observer.waitUntil([&] { return !hasIcon(); }))
        return false;
    start();
    return true;
}

// The panel appears in the middle of the screen and moves to its edge afterwards.
ScreenRect TrayPanel::findIcon()
{
    DesktopObserver& observer = m_session.observer();
    ScreenRect icon;
    const auto isInPlace = [&] {
        const xcb_window_t window = iconBelow(observer.root());
        if (window == XCB_WINDOW_NONE || observer.rectOnRoot(observer.topLevelOf(window)).y != 0)
            return false;
        icon = observer.rectOnRoot(window);
        return isReachedAt(window, icon.x + icon.width / 2, icon.y + icon.height / 2);
    };
    if (!observer.waitUntil(isInPlace)) {
        m_session.keepFailure("no-icon");
        return {};
    }
    return icon;
}

bool TrayPanel::hasIcon() { return iconBelow(m_session.observer().root()) != XCB_WINDOW_NONE; }

bool TrayPanel::clickIcon(std::uint8_t button)
{
    const ScreenRect icon = findIcon();
    m_session.input().moveTo(icon.x + icon.width / 2, icon.y + icon.height / 2);
    m_session.input().press(button);
    m_session.input().release(button);
    return icon.width > 0;
}

// The icon is a window of the program below the panel's window. The program's other windows inside a frame are listed
// by the window manager.
xcb_window_t TrayPanel::iconBelow(xcb_window_t window)
{
    const auto clients = m_session.observer().clientList();
    for (const xcb_window_t child : childrenOf(window)) {
        const bool isInside =
            window != m_session.observer().root() && std::ranges::find(clients, child) == clients.end();
        if (isInside && m_session.observer().text(child, "WM_CLASS").starts_with("com.kestrow.haloric"))
            return child;
        if (const xcb_window_t found = iconBelow(child))
            return found;
    }
    return XCB_WINDOW_NONE;
}

std::vector<xcb_window_t> TrayPanel::childrenOf(xcb_window_t window)
{
    xcb_connection_t* raw = m_session.observer().raw();
    const TestConnection::Reply<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(raw, xcb_query_tree(raw, window), nullptr));
    if (!tree)
        return {};
    const xcb_window_t* first = xcb_query_tree_children(tree.get());
    return {first, first + xcb_query_tree_children_length(tree.get())};
}

bool TrayPanel::isReachedAt(xcb_window_t wanted, int x, int y)
{
    xcb_connection_t* raw = m_session.observer().raw();
    const xcb_window_t root = m_session.observer().root();
    for (xcb_window_t window = root; window != wanted;) {
        const auto cookie =
            xcb_translate_coordinates(raw, root, window, static_cast<std::int16_t>(x), static_cast<std::int16_t>(y));
        const TestConnection::Reply<xcb_translate_coordinates_reply_t> reply(
            xcb_translate_coordinates_reply(raw, cookie, nullptr));
        if (!reply || reply->child == XCB_WINDOW_NONE)
            return false;
        window = reply->child;
    }
    return true;
}

} // namespace haloric
