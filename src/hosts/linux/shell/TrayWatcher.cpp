#include "hosts/linux/shell/TrayWatcher.h"

#include "hosts/linux/shell/StatusNotifierWatcher.h"

namespace haloric {

TrayWatcher::TrayWatcher(X11Connection& connection) : m_connection(connection), m_selection(connection.atoms().tray)
{
    // A manager that comes tells the root window's listeners.
    const xcb_atom_t manager = connection.atoms().manager;
    m_managers =
        connection.onEvent<xcb_client_message_event_t>(XCB_CLIENT_MESSAGE, [this, manager](const auto& message) {
            if (message.type == manager && message.data.data32[1] == m_selection)
                look();
        });
    connection.selectRootEvents(XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    m_notifierHosts = std::make_unique<StatusNotifierWatcher>([this] { look(); });
    look();
}

TrayWatcher::~TrayWatcher() = default;

bool TrayWatcher::hasManager() const
{
    xcb_connection_t* raw = m_connection.raw();
    const XcbReply<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(raw, xcb_get_selection_owner(raw, m_selection), nullptr));
    return reply && reply->owner != XCB_WINDOW_NONE;
}

void TrayWatcher::look()
{
    if (m_wereSeen || m_notifierHosts->areSilent() || (!m_notifierHosts->areThere() && !hasManager()))
        return;
    m_wereSeen = true;
    m_seen.publish();
}

} // namespace haloric
