#include "hosts/x11/server/X11Connection.h"

#include "hosts/posix/PosixStandardError.h"

#include <array>

#include <poll.h>
#include <sys/socket.h>

namespace haloric {

namespace {

// Ends the stream to the server and reads on until the server has ended its own.
void awaitEnd(int descriptor)
{
    constexpr int kMilliseconds = 1000;
    std::array<char, 4096> rest;
    shutdown(descriptor, SHUT_WR);
    for (pollfd readable{descriptor, POLLIN, 0};
         poll(&readable, 1, kMilliseconds) > 0 && recv(descriptor, rest.data(), rest.size(), MSG_DONTWAIT) > 0;) {
    }
}

} // namespace

std::unique_ptr<X11Connection> X11Connection::open(const char* display, LinuxRunLoop& runLoop, std::string* refusal)
{
    int screenNumber = 0;
    PosixStandardError output;
    xcb_connection_t* connection = xcb_connect(display, &screenNumber);
    const std::string text = output.end();
    if (xcb_connection_has_error(connection) != 0) {
        xcb_disconnect(connection); // also frees what a failed attempt left
        if (refusal)
            *refusal = text;
        return nullptr;
    }
    return std::unique_ptr<X11Connection>(new X11Connection(connection, screenNumber, runLoop));
}

X11Connection::X11Connection(xcb_connection_t* connection, int screenNumber, LinuxRunLoop& runLoop)
    : m_connection(connection),
      m_setup(xcb_get_setup(connection)),
      m_descriptor(xcb_get_file_descriptor(connection)),
      m_screenNumber(screenNumber),
      m_screen(&findScreen(*m_setup, screenNumber)),
      m_atoms(connection, screenNumber)
{
    m_watch = runLoop.watch(m_descriptor, [this] { dispatchPending(); });
    m_beforeWait = runLoop.onBeforeWait([this] {
        // Replies read meanwhile may have brought events along; the descriptor is not readable for those.
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
    if (xcb_flush(m_connection) > 0)
        awaitEnd(m_descriptor);
    xcb_disconnect(m_connection);
}

const xcb_screen_t& X11Connection::findScreen(const xcb_setup_t& setup, int number)
{
    auto screens = xcb_setup_roots_iterator(&setup);
    for (; screens.rem > 1 && number > 0; --number)
        xcb_screen_next(&screens);
    return *screens.data;
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
    const auto* data = xcb_get_extension_data(m_connection, extension);
    return data ? data->first_event : std::uint8_t{0};
}

Subscription X11Connection::onGenericEvent(xcb_extension_t* extension, EventHandler handler)
{
    const auto* data = xcb_get_extension_data(m_connection, extension);
    return m_genericEvents[data ? data->major_opcode : std::uint8_t{0}].subscribe(std::move(handler));
}

void X11Connection::selectRootEvents(std::uint32_t mask)
{
    if ((m_rootEvents & mask) == mask)
        return;
    m_rootEvents |= mask;
    selectEvents(root(), m_rootEvents);
}

bool X11Connection::mayListenTo(xcb_window_t window) const
{
    return window != XCB_WINDOW_NONE && window != root() &&
           (window & ~m_setup->resource_id_mask) != m_setup->resource_id_base;
}

void X11Connection::listenTo(xcb_window_t window)
{
    selectEvents(window, XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY);
}

void X11Connection::ignore(xcb_window_t window) { selectEvents(window, XCB_EVENT_MASK_NO_EVENT); }

void X11Connection::selectEvents(xcb_window_t window, std::uint32_t mask)
{
    xcb_change_window_attributes(m_connection, window, XCB_CW_EVENT_MASK, &mask);
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
    // Another client sent it. Messages are meant to be sent. What happens to windows is reported by the server itself;
    // window managers send such events to clients as well, and any client can send false ones.
    if ((event.response_type & kSentEventBit) != 0 && type != XCB_CLIENT_MESSAGE)
        return;
    if (type == XCB_GE_GENERIC) {
        const auto& generic = eventAs<xcb_ge_generic_event_t>(event);
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
