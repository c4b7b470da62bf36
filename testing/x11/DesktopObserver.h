// What a test can see of the desktop from outside: the window manager's lists, the stacking of the root's children,
// who owns them, and the selections of managers.
#pragma once

#include "testing/x11/TestConnection.h"

#include <sys/types.h>

namespace haloric {

struct RootChild {
    xcb_window_t window = XCB_WINDOW_NONE;
    ScreenRect geometry;
    bool isMapped = false;
    bool isOverrideRedirect = false;
    std::uint8_t depth = 0;
    pid_t process = 0; // of the client that made it, told by the server; 0 when it cannot tell
};

class DesktopObserver : public TestConnection {
public:
    explicit DesktopObserver(const std::string& display);

    bool hasWindowManager();
    bool hasCompositor();
    bool hasTray(); // of the older kind

    // Whether the window manager answers requests by now. It announces itself before it listens, and may leave what
    // it is asked meanwhile lying until something else comes; so this asks once at each call.
    bool windowManagerAnswers();

    // Whether a compositor draws the windows by now. It announces itself before it does, and may never learn of a
    // change of the screen's size that falls in between.
    bool compositorDraws();

    xcb_window_t activeWindow();
    std::vector<xcb_window_t> clientList();         // in the order in which they came
    std::vector<xcb_window_t> clientListStacking(); // bottom to top

    // The children of the root, bottom to top.
    std::vector<RootChild> rootChildren();

    // The mapped override-redirect windows that a process has put on the screen, bottom to top.
    std::vector<RootChild> overlaysOf(pid_t process);

    // The child of the root that holds `window`: its frame, or itself. None when it is gone.
    xcb_window_t topLevelOf(xcb_window_t window);

    // Where a top-level window stands among the root's children, bottom 0; -1 when it is none of them.
    int stackingIndexOf(xcb_window_t window);

    // Where the inside of a window is on the root. Empty size when it is gone.
    ScreenRect rectOnRoot(xcb_window_t window);

    xcb_window_t focusedWindow(); // of the keyboard

    // Fills the root with a picture, in the ways in which compositors and servers look for it.
    void setDesktopPicture(const ScreenImage& picture);

private:
    bool isOwned(const std::string& selection);
    pid_t processOf(xcb_window_t window);

    xcb_window_t m_probe = XCB_WINDOW_NONE;       // never mapped; there while an answer is awaited
    xcb_window_t m_mappedProbe = XCB_WINDOW_NONE; // beyond the screen; there until a compositor draws it
};

} // namespace haloric
