// A panel with a tray of the older kind at the upper edge of a test's desktop, on the left unless told otherwise, and
// the program's icon in it.
#pragma once

#include "testing/x11/X11Session.h"

#include <memory>
#include <string>
#include <vector>

namespace haloric {

class TrayPanel {
public:
    // Starts the panel; `look` are options of it beyond the usual ones, or in their place. The session outlives it.
    explicit TrayPanel(X11Session& session, std::vector<std::string> look = {});

    // Ends the panel, waits until the icon is nowhere, and starts it anew.
    [[nodiscard]] bool restart();

    // Waits until the icon is where a click in its middle reaches it; its place on the root. Empty when there is none.
    ScreenRect findIcon();

    // The same, and clicks it.
    [[nodiscard]] bool clickIcon(std::uint8_t button = XCB_BUTTON_INDEX_1);

private:
    void start();
    xcb_window_t iconBelow(xcb_window_t window);
    std::vector<xcb_window_t> childrenOf(xcb_window_t window);
    bool isReachedAt(xcb_window_t wanted, int x, int y);

    X11Session& m_session;
    std::vector<std::string> m_look;
    std::unique_ptr<ChildProcess> m_process;
};

} // namespace haloric
