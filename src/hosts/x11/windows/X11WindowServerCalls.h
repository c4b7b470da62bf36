// The window server's private interface, answered here: the frame of one watched window, followed by a thread of its
// own, and moves of the program's own windows.
//
// Moves are sent over the main connection, because the toolkit moves the same windows over it and the requests must
// keep their order. Main thread, except for the notifications, which the watching thread sends.
#pragma once

#include "hosts/x11/server/X11Connection.h"
#include "hosts/x11/server/X11Scale.h"
#include "hosts/x11/windows/X11Clients.h"
#include "hosts/x11/windows/X11FrameWatch.h"
#include "platform/WindowServerCalls.h"

#include <mutex>
#include <vector>

namespace haloric {

class X11WindowServerCalls final : public WindowServerCalls {
public:
    // `display` as for the connection. All four outlive it.
    X11WindowServerCalls(X11Connection& connection, const char* display, const X11Clients& clients,
                         const X11Scale& scale);

    // No notification is sent any more once its event has been removed.
    Subscription load(NotificationHandler handler) override;
    bool has(Entry entry) const override;
    ConnectionID mainConnection() override;

    // The visible frame. Takes no round trip for a managed window, one for any other.
    std::optional<Rect> getBounds(ConnectionID connection, WindowNumber window) override;

    bool registerProc(WindowServerEvent event) override;
    bool removeProc(WindowServerEvent event) override;                   // false if it is not registered
    bool request(ConnectionID connection, WindowNumber window) override; // false without a second connection
    std::unique_ptr<WindowServerTransaction> create(ConnectionID connection) override;

private:
    class Transaction;

    std::optional<PixelRect> askForRectangle(xcb_window_t window) const;
    void notify(xcb_window_t window, WindowServerEvent event);

    X11Connection& m_connection;
    const X11Clients& m_clients;
    const X11Scale& m_scale;

    std::mutex m_lock; // guards the next two, and is held while the handler is called
    NotificationHandler m_handler;
    std::vector<WindowServerEvent> m_registered;

    X11FrameWatch m_watch; // last, so that its thread ends first
};

} // namespace haloric
