#include "hosts/x11/overlay/X11Compositor.h"

#include "hosts/x11/server/X11Property.h"

#include <xcb/xfixes.h>

namespace haloric {

namespace {

constexpr std::uint32_t kOwnershipEvents = XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                                           XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                           XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE;

} // namespace

X11Compositor::X11Compositor(X11Connection& connection)
    : m_connection(connection),
      m_selection(connection.atoms().compositor)
{
    xcb_connection_t* raw = connection.raw();
    if (connection.has(&xcb_xfixes_id)) {
        xcb_discard_reply(raw, xcb_xfixes_query_version(raw, 5, 0).sequence); // required before any other request
        xcb_xfixes_select_selection_input(raw, connection.root(), m_selection, kOwnershipEvents);
        const auto type =
            static_cast<std::uint8_t>(connection.firstEvent(&xcb_xfixes_id) + XCB_XFIXES_SELECTION_NOTIFY);
        m_events = connection.onEvent<xcb_xfixes_selection_notify_event_t>(type, [this](const auto& notify) {
            if (notify.selection == m_selection)
                setOwner(notify.subtype == XCB_XFIXES_SELECTION_EVENT_SET_SELECTION_OWNER ? notify.owner : 0);
        });
    }
    const XcbReply<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(raw, xcb_get_selection_owner(raw, m_selection), nullptr));
    m_owner = reply ? reply->owner : 0;
}

void X11Compositor::setOwner(xcb_window_t owner)
{
    const bool was = isRunning();
    m_owner = owner;
    if (was != isRunning())
        m_changed.publish();
}

std::string X11Compositor::name() const
{
    if (!isRunning())
        return {};
    xcb_connection_t* raw = m_connection.raw();
    for (const xcb_atom_t property : {m_connection.atoms().name, xcb_atom_t{XCB_ATOM_WM_NAME}}) {
        const X11Property value = X11PropertyRequest(raw, m_owner, property).take();
        if (!value.text().empty())
            return std::string(value.text());
    }
    return {};
}

} // namespace haloric
