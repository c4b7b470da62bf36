#include "hosts/x11/server/X11Connection.h"

#include "hosts/x11/server/X11AtomNames.h"

#include <vector>

namespace haloric {

namespace {

constexpr std::uint8_t kSentEventBit = 0x80;

const xcb_screen_t* findScreen(xcb_connection_t* connection, int number)
{
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (; screens.rem > 1 && number > 0; --number)
        xcb_screen_next(&screens);
    return screens.data;
}

xcb_intern_atom_cookie_t askForAtom(xcb_connection_t* connection, std::string_view name)
{
    return xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
}

xcb_atom_t awaitAtom(xcb_connection_t* connection, xcb_intern_atom_cookie_t cookie)
{
    const XcbReply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection, cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

} // namespace

std::unique_ptr<X11Connection> X11Connection::open(const char* display, LinuxRunLoop& runLoop)
{
    int screenNumber = 0;
    xcb_connection_t* connection = xcb_connect(display, &screenNumber);
    if (xcb_connection_has_error(connection) != 0) {
        xcb_disconnect(connection); // also frees what a failed attempt left
        return nullptr;
    }
    return std::unique_ptr<X11Connection>(new X11Connection(connection, screenNumber, runLoop));
}

X11Connection::X11Connection(xcb_connection_t* connection, int screenNumber, LinuxRunLoop& runLoop)
    : m_connection(connection),
      m_screen(findScreen(connection, screenNumber))
{
    prefetchAtoms();
    m_watch = runLoop.watch(xcb_get_file_descriptor(connection), [this] { dispatchPending(); });
    m_beforeWait = runLoop.onBeforeWait([this] {
        // Replies read meanwhile may have brought events along; the descriptor does not tell of those.
        bool worked = false;
        while (const XcbReply<xcb_generic_event_t> event{xcb_poll_for_queued_event(m_connection)}) {
            dispatch(*event);
            worked = true;
        }
        xcb_flush(m_connection);
        return noticeLoss() || worked;
    });
}

X11Connection::~X11Connection()
{
    m_beforeWait.reset();
    m_watch.reset();
    xcb_disconnect(m_connection);
}

void X11Connection::prefetchAtoms()
{
    std::vector<xcb_intern_atom_cookie_t> cookies;
    cookies.reserve(kX11AtomNames.size());
    for (const auto name : kX11AtomNames)
        cookies.push_back(askForAtom(m_connection, name));
    for (std::size_t index = 0; index < cookies.size(); ++index)
        m_atoms.emplace(kX11AtomNames[index], awaitAtom(m_connection, cookies[index]));
}

xcb_atom_t X11Connection::atom(std::string_view name)
{
    const auto found = m_atoms.find(std::string(name));
    if (found != m_atoms.end())
        return found->second;
    const xcb_atom_t atom = awaitAtom(m_connection, askForAtom(m_connection, name));
    m_atoms.emplace(name, atom);
    return atom;
}

bool X11Connection::has(xcb_extension_t* extension) const
{
    const auto* data = xcb_get_extension_data(m_connection, extension);
    return data && data->present != 0;
}

Subscription X11Connection::onEvent(std::uint8_t type, EventHandler handler)
{
    return m_events.at(type).subscribe(std::move(handler));
}

std::uint8_t X11Connection::firstEvent(xcb_extension_t* extension) const
{
    return xcb_get_extension_data(m_connection, extension)->first_event;
}

Subscription X11Connection::onGenericEvent(xcb_extension_t* extension, EventHandler handler)
{
    const std::uint8_t opcode = xcb_get_extension_data(m_connection, extension)->major_opcode;
    return m_genericEvents[opcode].subscribe(std::move(handler));
}

void X11Connection::selectRootEvents(std::uint32_t mask)
{
    if ((m_rootEvents & mask) == mask)
        return;
    m_rootEvents |= mask;
    xcb_change_window_attributes(m_connection, root(), XCB_CW_EVENT_MASK, &m_rootEvents);
}

bool X11Connection::dispatchPending()
{
    bool any = false;
    while (const XcbReply<xcb_generic_event_t> event{xcb_poll_for_event(m_connection)}) {
        dispatch(*event);
        any = true;
    }
    return noticeLoss() || any;
}

void X11Connection::dispatch(const xcb_generic_event_t& event)
{
    const auto type = static_cast<std::uint8_t>(event.response_type & ~kSentEventBit);
    if (type == 0)
        return; // an error of a request without a reply
    if (type == XCB_GE_GENERIC) {
        const auto& generic = reinterpret_cast<const xcb_ge_generic_event_t&>(event);
        const auto found = m_genericEvents.find(generic.extension);
        if (found != m_genericEvents.end())
            found->second.publish(event);
        return;
    }
    m_events.at(type).publish(event);
}

bool X11Connection::noticeLoss()
{
    if (m_isLost || xcb_connection_has_error(m_connection) == 0)
        return false;
    m_isLost = true;
    m_watch.reset();
    m_lost.publish();
    return true;
}

} // namespace haloric
