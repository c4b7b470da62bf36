#include "hosts/x11/input/X11OwnWindows.h"

namespace haloric {

bool X11OwnWindows::areUnderPointer() const
{
    if (m_windows.empty())
        return false;
    xcb_connection_t* raw = m_connection.raw();
    // From the root down to the innermost window: a window manager puts frames around the windows.
    for (xcb_window_t window = m_connection.root(); window != XCB_WINDOW_NONE;) {
        if (m_windows.contains(window))
            return true;
        const XcbReply<xcb_query_pointer_reply_t> reply(
            xcb_query_pointer_reply(raw, xcb_query_pointer(raw, window), nullptr));
        window = reply ? reply->child : 0;
    }
    return false;
}

} // namespace haloric
