// The selection by which the instances on one display find each other, however each of them spells the display's name
// and wherever its socket is. The owner's window has the path of the socket. Main thread.
#pragma once

#include "hosts/x11/server/X11Connection.h"

#include <filesystem>
#include <optional>

namespace haloric {

class X11InstanceSelection {
public:
    // The connection outlives it, and holds the selection until it closes.
    explicit X11InstanceSelection(X11Connection& connection);

    // Takes the selection if no instance has it. Returns no value then, or else the holder's socket, as `holder` does.
    // Holds the server during three round trips, so that one of several starts gets it.
    std::optional<std::filesystem::path> claim(const std::filesystem::path& socket);

    // The socket of the instance that has the selection; empty if it has none on this machine. No value without an
    // instance. Three round trips.
    std::optional<std::filesystem::path> holder() const;

private:
    xcb_atom_t intern(const char* name) const;

    X11Connection& m_connection;
    xcb_atom_t m_selection;
    xcb_atom_t m_socket; // property of the owner's window, as the next
    xcb_atom_t m_machine;
};

} // namespace haloric
