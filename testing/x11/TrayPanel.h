// A panel with an XEmbed tray at the upper edge of a test's desktop, left by default, and the program's icon in it. The
// destructor ends the panel.
#pragma once

#include "testing/x11/X11Session.h"

#include <memory>
#include <string>
#include <vector>

namespace haloric {

class TrayPanel {
public:
    // Starts the panel; `options` follow the default ones on its command line and override them. The session outlives
    // it.
    explicit TrayPanel(X11Session& session, std::vector<std::string> options = {});

    // Ends the panel, waits until the icon is gone, and starts the panel again.
    [[nodiscard]] bool restart();

    // Waits until a click at the icon's centre reaches it. Returns its rectangle on the root; empty after a timeout.
    ScreenRect findIcon();

    // Whether there is an icon now.
    bool hasIcon();

    // Finds the icon and clicks it.
    [[nodiscard]] bool clickIcon(std::uint8_t button = XCB_BUTTON_INDEX_1);

private:
    void start();
    xcb_window_t iconBelow(xcb_window_t window);
    std::vector<xcb_window_t> childrenOf(xcb_window_t window);
    bool isReachedAt(xcb_window_t wanted, int x, int y);

    X11Session& m_session;
    std::vector<std::string> m_options;
    std::unique_ptr<ChildProcess> m_process;
};

} // namespace haloric
