// Follows the frame of one window on a thread and a connection of its own, so that its movement is known at once
// however busy the main thread is. Windows are named by their client's X id; rectangles are visible frames in root
// pixels.
//
// Only the thread reads from its connection, so every event wakes it. It blocks only on the X server.
#pragma once

#include "hosts/x11/server/X11Atoms.h"
#include "hosts/x11/windows/X11Client.h"
#include "hosts/x11/windows/X11WatchedWindow.h"

#include <cstdint>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>

#include <xcb/xcb.h>

namespace haloric {

class X11FrameWatch {
public:
    enum class Event { moved, resized, hidden, destroyed };
    using Handler = std::function<void(xcb_window_t, Event)>; // on the thread, which must not be made to wait long

    // Connects to `display` (null: what DISPLAY names) and starts the thread. Without a connection nothing is ever
    // watched.
    X11FrameWatch(const char* display, const X11Atoms& atoms, Handler handler);
    ~X11FrameWatch();
    X11FrameWatch(const X11FrameWatch&) = delete;
    X11FrameWatch& operator=(const X11FrameWatch&) = delete;

    bool isConnected() const { return m_connection != nullptr; }

    // Watches a window in place of the previous one. `known` (null: nothing) is what the caller knows of it already, in
    // force until the thread has looked for itself; whatever changed since is then told as an event. Main thread; does
    // not wait.
    void watch(xcb_window_t window, const X11Client* known);
    void stop() { watch(XCB_WINDOW_NONE, nullptr); }

    // Where the watched window is at the moment. Any thread; costs a lock.
    struct Sighting {
        bool isWatched = false;                // false: some other window, or not seen yet
        std::optional<PixelRect> visibleFrame; // absent when it is hidden or gone
    };
    Sighting look(xcb_window_t window) const;

private:
    struct Target {
        xcb_window_t window = XCB_WINDOW_NONE;
        std::uint64_t serial = 0; // tells one call of `watch` from the next
        bool isSeen = false;
        bool exists = true;
        std::optional<PixelRect> visibleFrame;
    };

    void run();
    bool adopt();
    void tell();
    void wait();

    xcb_connection_t* m_connection = nullptr;
    int m_wakeDescriptor = -1;
    Handler m_handler;

    mutable std::mutex m_lock; // guards the next two
    Target m_target;
    bool m_isEnding = false;

    // The thread's own.
    std::optional<X11WatchedWindow> m_watched;
    std::uint64_t m_serial = 0;

    std::thread m_thread;
};

} // namespace haloric
