// The window server's private interface, answered here: the frame of one followed window, and moves of the program's
// own windows.
//
// Moves are sent over the main connection, because the toolkit moves the same windows over it and the requests must
// keep their order. Main thread, notifications included.
#pragma once

#include "hosts/x11/server/X11Connection.h"
#include "hosts/x11/server/X11Scale.h"
#include "hosts/x11/windows/X11Clients.h"
#include "hosts/x11/windows/X11FocusedFrame.h"
#include "platform/WindowServerCalls.h"

#include <vector>

namespace haloric {

class X11WindowServerCalls final : public WindowServerCalls {
public:
    // All three outlive it.
    X11WindowServerCalls(X11Connection& connection, X11Clients& clients, const X11Scale& scale);

    Subscription load(NotificationHandler handler) override;
    bool has(Entry entry) const override;
    ConnectionID mainConnection() override;

    // The visible frame. Takes no round trip for a managed window, one for any other.
    std::optional<Rect> getBounds(ConnectionID connection, WindowNumber window) override;

    bool registerProc(WindowServerEvent event) override;
    bool removeProc(WindowServerEvent event) override; // false if it is not registered
    bool request(ConnectionID connection, WindowNumber window) override;
    std::unique_ptr<WindowServerTransaction> create(ConnectionID connection) override;

private:
    class Transaction;

    std::optional<PixelRect> askForRectangle(xcb_window_t window) const;
    void notify(WindowServerEvent event, xcb_window_t window) const;

    X11Connection& m_connection;
    X11Clients& m_clients;
    const X11Scale& m_scale;
    NotificationHandler m_handler;
    std::vector<WindowServerEvent> m_registered;
    X11FocusedFrame m_focused;
};

} // namespace haloric
