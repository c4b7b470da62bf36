#include "hosts/x11/shell/X11FocusRequest.h"

namespace haloric {

namespace {

constexpr std::uint32_t kFromPager = 2; // source indication of _NET_ACTIVE_WINDOW

} // namespace

QtFocusRequest x11FocusRequest(X11Connection& connection)
{
    return [&connection](WId window) {
        xcb_client_message_event_t message{};
        message.response_type = XCB_CLIENT_MESSAGE;
        message.format = 32;
        message.window = static_cast<xcb_window_t>(window);
        message.type = connection.atoms().activeWindow;
        message.data.data32[0] = kFromPager;
        xcb_send_event(connection.raw(), 0, connection.root(),
                       XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                       reinterpret_cast<const char*>(&message));
        connection.flush();
    };
}

} // namespace haloric
