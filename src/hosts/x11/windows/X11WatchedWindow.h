// The one window that a thread follows over a connection of its own: what its events and its properties say about
// where it is seen. Belongs to that thread.
#pragma once

#include "hosts/x11/server/X11Atoms.h"
#include "hosts/x11/windows/X11Client.h"
#include "hosts/x11/windows/X11ClientReader.h"

#include <cstdint>
#include <optional>

#include <xcb/xcb.h>

namespace haloric {

class X11WatchedWindow {
public:
    // Listens to the frames on the root of this connection from now on.
    X11WatchedWindow(xcb_connection_t* connection, xcb_window_t root, const X11Atoms& atoms);

    // Follows another window, or none, and reads it.
    void become(xcb_window_t window);
    xcb_window_t window() const { return m_client.window; }

    // Takes in an event of the connection.
    void handle(const xcb_generic_event_t& event);

    // Reads again what the events since then have made uncertain. True when that took a round trip, with which more
    // events may have come.
    bool readAgain();

    bool exists() const { return m_exists; }
    std::optional<PixelRect> visibleFrame() const; // absent when it is minimised, not mapped or gone

private:
    void propertyChanged(xcb_atom_t property);
    void configured(const xcb_generic_event_t& event);
    void mapped(xcb_window_t window, bool isMapped);
    void destroyed(xcb_window_t window);
    void select(xcb_window_t window, std::uint32_t events) const;

    xcb_connection_t* m_connection;
    xcb_window_t m_root;
    X11Atoms m_atoms;
    X11ClientReader m_reader;

    X11Client m_client;
    bool m_exists = false;
    bool m_mustRead = false;
    bool m_mustMeasure = false;
};

} // namespace haloric
