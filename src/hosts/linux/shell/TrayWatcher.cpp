#include "hosts/linux/shell/TrayWatcher.h"

#include "hosts/linux/shell/StatusNotifierWatcher.h"

#include <string>

namespace haloric {

namespace {

// As many managers as there are screens; this is the one of the connection's screen.
std::string selectionName(const X11Connection& connection)
{
    int number = 0;
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection.raw()));
    for (; screens.rem > 1 && screens.data->root != connection.root(); ++number)
        xcb_screen_next(&screens);
    return "_NET_SYSTEM_TRAY_S" + std::to_string(number);
}

} // namespace

TrayWatcher::TrayWatcher(X11Connection& connection)
    : m_connection(connection),
      m_selection(connection.atom(selectionName(connection)))
{
    // A manager that comes tells the root window's listeners.
    const xcb_atom_t manager = connection.atom("MANAGER");
    m_managers = connection.onEvent(XCB_CLIENT_MESSAGE, [this, manager](const xcb_generic_event_t& event) {
        const auto& message = reinterpret_cast<const xcb_client_message_event_t&>(event);
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
