// The desktop as other clients see it: the window manager's lists, the stacking order of the root's children, their
// processes, and the manager selections. Rectangles are root coordinates. One thread.
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
    pid_t process = 0; // of the client that created it, as the X server reports it; 0 if unknown
};

class DesktopObserver : public TestConnection {
public:
    explicit DesktopObserver(const std::string& display);

    bool hasWindowManager();
    bool hasCompositor();
    bool hasTray(); // of the XEmbed kind

    // Whether the window manager answers requests. It announces itself before it reads requests, and may leave earlier
    // ones unread until another event arrives; so each call sends one request.
    bool windowManagerAnswers();

    // Whether a compositor redirects the windows. It announces itself before it does, and may miss a change of the
    // screen's size in between.
    bool compositorDraws();

    xcb_window_t activeWindow();
    std::vector<xcb_window_t> clientList();         // in the order of their mapping
    std::vector<xcb_window_t> clientListStacking(); // bottom to top

    // The children of the root, bottom to top.
    std::vector<RootChild> rootChildren();

    // The mapped override-redirect windows of a process, bottom to top.
    std::vector<RootChild> overlaysOf(pid_t process);

    // The child of the root that contains `window`: its frame, or itself. XCB_WINDOW_NONE if it is gone.
    xcb_window_t topLevelOf(xcb_window_t window);

    // The index of a top-level window among the root's children, bottom 0; -1 if it is not a child of the root.
    int stackingIndexOf(xcb_window_t window);

    // The inside of a window. Empty size if it is gone.
    ScreenRect rectOnRoot(xcb_window_t window);

    xcb_window_t focusedWindow(); // the keyboard focus of the X server

    // Sets the root's background, and the properties in which compositors look for it.
    void setDesktopPicture(const ScreenImage& picture);

private:
    bool isOwned(const std::string& selection);
    pid_t processOf(xcb_window_t window);

    xcb_window_t m_probe = XCB_WINDOW_NONE;       // never mapped; exists while a request is pending
    xcb_window_t m_mappedProbe = XCB_WINDOW_NONE; // outside the screen; exists until a compositor redirects it
};

} // namespace haloric
