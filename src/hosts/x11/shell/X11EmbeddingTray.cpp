#include "hosts/x11/shell/X11EmbeddingTray.h"

namespace haloric {

X11EmbeddingTray::X11EmbeddingTray(X11Connection& connection) : m_connection(connection)
{
    // A new tray sends MANAGER to the root window.
    m_messages = connection.onEvent<xcb_client_message_event_t>(XCB_CLIENT_MESSAGE, [this](const auto& message) {
        const X11Atoms& atoms = m_connection.atoms();
        if (message.type == atoms.manager && message.data.data32[1] == atoms.tray)
            m_appeared.publish();
    });
    connection.selectRootEvents(XCB_EVENT_MASK_STRUCTURE_NOTIFY);
}

bool X11EmbeddingTray::exists() const
{
    xcb_connection_t* raw = m_connection.raw();
    const XcbReply<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(raw, xcb_get_selection_owner(raw, m_connection.atoms().tray), nullptr));
    return reply && reply->owner != XCB_WINDOW_NONE;
}

} // namespace haloric
