// The main connection to the X server: its screen, atoms and extensions, and the dispatch of its events to their
// subscribers. Main thread.
//
// Errors of requests without a reply are expected (windows vanish at any time) and dropped; requests with a reply
// report theirs through a null reply.
#pragma once

#include "foundation/Publisher.h"
#include "foundation/Subscription.h"
#include "hosts/linux/loop/LinuxRunLoop.h"
#include "hosts/x11/server/X11Atoms.h"
#include "hosts/x11/server/XcbReply.h"

#include <array>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>

#include <xcb/xcb.h>

namespace haloric {

class X11Connection {
public:
    using EventHandler = std::function<void(const xcb_generic_event_t&)>;

    // Connects to `display` (null: what DISPLAY names). Null when no server answers, or when it refuses the connection;
    // `refusal` is the server's reason then, if it gives one. libxcb writes that to standard error; it is taken from
    // there, so no other thread may write meanwhile.
    static std::unique_ptr<X11Connection> open(const char* display, LinuxRunLoop& runLoop,
                                               std::string* refusal = nullptr);

    // Returns when the server has closed the connection and so removed the windows, a second later at most.
    ~X11Connection();
    X11Connection(const X11Connection&) = delete;
    X11Connection& operator=(const X11Connection&) = delete;

    xcb_connection_t* raw() const { return m_connection; }
    const xcb_setup_t& setup() const { return *m_setup; } // libxcb itself has none once the server has gone
    int descriptor() const { return m_descriptor; }
    const X11Atoms& atoms() const { return m_atoms; }

    // The screen that the display's name selects.
    int screenNumber() const { return m_screenNumber; }
    const xcb_screen_t& screen() const { return *m_screen; }
    xcb_window_t root() const { return m_screen->root; }

    // The window that has the user's resources: the root of the first screen.
    xcb_window_t resourceRoot() const { return findScreen(*m_setup, 0).root; }

    static const xcb_screen_t& findScreen(const xcb_setup_t& setup, int number);

    // Whether the server has an extension.
    bool has(xcb_extension_t* extension) const;

    // Events from the server, and client messages, of a core or extension type (`response_type` without the sent-event
    // bit; add the extension's first event), in the order of subscription. `Event` is the struct of the type.
    Subscription onEvent(std::uint8_t type, EventHandler handler);
    template <class Event, class Handler>
    Subscription onEvent(std::uint8_t type, Handler handler)
    {
        return onEvent(type, [handler = std::move(handler)](const xcb_generic_event_t& event) mutable {
            handler(eventAs<Event>(event));
        });
    }
    std::uint8_t firstEvent(xcb_extension_t* extension) const; // 0 once the server has gone

    // Generic events (XInput2, Present) of one extension.
    Subscription onGenericEvent(xcb_extension_t* extension, EventHandler handler);

    // Adds to the events selected on the root window for this client; never removes any.
    void selectRootEvents(std::uint32_t mask);

    // Selects a window's property changes and its own structure events (configuring, mapping, reparenting, end) for
    // this client, or nothing any more. Only for windows of other clients, because the root and this connection's
    // windows have their events selected elsewhere. Properties name windows, and may name any: ask `mayListenTo` first.
    bool mayListenTo(xcb_window_t window) const;
    void listenTo(xcb_window_t window);
    void ignore(xcb_window_t window);

    // Called once when the server has gone away. Nothing else is delivered after that.
    Subscription onLost(Task handler) { return m_lost.subscribe(std::move(handler)); }
    bool isLost() const { return m_isLost; }

    // Sends what is buffered. The run loop calls it before every wait; needed only where a request must not wait.
    void flush() { xcb_flush(m_connection); }

    // Dispatches every event that has arrived, as the loop does; true when there was one.
    bool dispatchPending();

private:
    X11Connection(xcb_connection_t* connection, int screenNumber, LinuxRunLoop& runLoop);
    void selectEvents(xcb_window_t window, std::uint32_t mask);
    void dispatch(const xcb_generic_event_t& event);
    bool noticeLoss();

    xcb_connection_t* m_connection;
    const xcb_setup_t* m_setup;
    int m_descriptor;
    int m_screenNumber;
    const xcb_screen_t* m_screen;
    X11Atoms m_atoms;
    std::array<Publisher<xcb_generic_event_t>, 128> m_events;
    std::map<std::uint8_t, Publisher<xcb_generic_event_t>> m_genericEvents; // by extension opcode
    std::uint32_t m_rootEvents = 0;
    Publisher<> m_lost;
    bool m_isLost = false;
    Subscription m_watch;
    Subscription m_beforeWait;
};

} // namespace haloric
