// The main connection to the X server: its root window, atoms, extensions, and the dispatch of its events to
// whoever asked for them, on the main thread.
//
// Errors of requests without a reply are expected (windows vanish at any time) and dropped; requests with a reply
// report theirs through a null reply.
#pragma once

#include "foundation/Publisher.h"
#include "foundation/Subscription.h"
#include "hosts/linux/loop/LinuxRunLoop.h"
#include "hosts/x11/server/XcbReply.h"

#include <array>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

#include <xcb/xcb.h>

namespace haloric {

class X11Connection {
public:
    using EventHandler = std::function<void(const xcb_generic_event_t&)>;

    // Connects to `display` (null: what DISPLAY names). Null when no server answers.
    static std::unique_ptr<X11Connection> open(const char* display, LinuxRunLoop& runLoop);
    ~X11Connection();
    X11Connection(const X11Connection&) = delete;
    X11Connection& operator=(const X11Connection&) = delete;

    xcb_connection_t* raw() const { return m_connection; }
    const xcb_screen_t& screen() const { return *m_screen; }
    xcb_window_t root() const { return m_screen->root; }

    // The window that bears the user's resources: the first root, whichever is ours.
    xcb_window_t resourceRoot() const { return xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root; }

    // The atom of a name; asked from the server once. Never blocks for a name in X11AtomNames.h.
    xcb_atom_t atom(std::string_view name);

    // Whether the server has an extension.
    bool has(xcb_extension_t* extension) const;

    // Events of a core or extension type (`response_type` without the sent-event bit; add the extension's first
    // event), in the order of subscription.
    Subscription onEvent(std::uint8_t type, EventHandler handler);
    std::uint8_t firstEvent(xcb_extension_t* extension) const;

    // Generic events (XInput2, Present) of one extension.
    Subscription onGenericEvent(xcb_extension_t* extension, EventHandler handler);

    // Adds to the events selected on the root window for this client; never takes any away.
    void selectRootEvents(std::uint32_t mask);

    // Called once when the server has gone away. Nothing else is delivered after that.
    Subscription onLost(Task handler) { return m_lost.subscribe(std::move(handler)); }
    bool isLost() const { return m_isLost; }

    // Sends what is buffered. Called before every wait by the run loop; needed only where a request must not wait.
    void flush() { xcb_flush(m_connection); }

    // Takes in every event that has arrived, as the loop does; true when there was one.
    bool dispatchPending();

private:
    X11Connection(xcb_connection_t* connection, int screenNumber, LinuxRunLoop& runLoop);
    void prefetchAtoms();
    void dispatch(const xcb_generic_event_t& event);
    bool noticeLoss();

    xcb_connection_t* m_connection;
    const xcb_screen_t* m_screen = nullptr;
    std::unordered_map<std::string, xcb_atom_t> m_atoms;
    std::array<Publisher<xcb_generic_event_t>, 128> m_events;
    std::map<std::uint8_t, Publisher<xcb_generic_event_t>> m_genericEvents; // by extension opcode
    std::uint32_t m_rootEvents = 0;
    Publisher<> m_lost;
    bool m_isLost = false;
    Subscription m_watch;
    Subscription m_beforeWait;
};

} // namespace haloric
