// What stands behind the window server's entry points here: the frame of one watched window, followed by a thread
// of its own, and moves of our own windows.
//
// Moves go over the main connection, because the toolkit's moves of the same windows do too and must keep their
// order. Main thread, except for the notification procedures, which the watching thread calls.
#pragma once

#include "hosts/x11/server/X11Connection.h"
#include "hosts/x11/server/X11Scale.h"
#include "hosts/x11/windows/X11Clients.h"
#include "hosts/x11/windows/X11FrameWatch.h"
#include "windowserver/WindowServerEntries.h"

#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <utility>
#include <vector>

namespace haloric {

class X11WindowServer {
public:
    // Event numbers, as the platform has them.
    static constexpr std::uint32_t kDestroyed = 804;
    static constexpr std::uint32_t kMoved = 806;
    static constexpr std::uint32_t kResized = 807;
    static constexpr std::uint32_t kOrderedOut = 816;

    struct Transaction {
        std::vector<std::pair<xcb_window_t, Point>> moves;
    };

    // `display` as for the connection. All three outlive it.
    X11WindowServer(X11Connection& connection, const char* display, const X11Clients& clients, const X11Scale& scale);

    // The visible frame of a window, in points of the global space; absent when there is no such window. Takes no
    // round trip for a managed window, one for any other.
    std::optional<Rect> bounds(xcb_window_t window);

    // A procedure is not called any more once it has been removed.
    void addProcedure(WindowServerEntries::NotifyProc procedure, std::uint32_t event);
    bool removeProcedure(WindowServerEntries::NotifyProc procedure, std::uint32_t event); // false: was not there

    // Watches the one window, or none; false when that cannot be done (more than one, no second connection).
    bool requestNotifications(std::span<const std::uint32_t> windows);

    // Moves are noted until they are committed, and then sent as one batch at once.
    std::unique_ptr<Transaction> createTransaction();
    static void move(Transaction& transaction, xcb_window_t window, Point origin);
    void commit(Transaction& transaction);
    void recycle(std::unique_ptr<Transaction> transaction);

private:
    using Registration = std::pair<WindowServerEntries::NotifyProc, std::uint32_t>;

    std::optional<PixelRect> askForRectangle(xcb_window_t window) const;
    void notify(xcb_window_t window, std::uint32_t event);

    X11Connection& m_connection;
    const X11Clients& m_clients;
    const X11Scale& m_scale;
    std::unique_ptr<Transaction> m_spare; // saves an allocation a move

    std::mutex m_lock; // guards the registrations, and is held while they are called
    std::vector<Registration> m_registrations;

    X11FrameWatch m_watch; // last, so that its thread ends first
};

} // namespace haloric
