// The managed windows and the state of the desktop, as last heard from the X server.
//
// The main thread writes, any thread reads: each call takes the lock for a few comparisons and gives copies. So the
// Accessibility queue answers from here and neither needs a connection of its own nor waits for anybody, and what it
// says agrees with what the main thread has been told.
#pragma once

#include "hosts/x11/windows/X11Client.h"
#include "hosts/x11/windows/X11ClientNotice.h"

#include <cstdint>
#include <mutex>
#include <optional>
#include <span>
#include <vector>

namespace haloric {

class X11ClientTable {
public:
    // Any thread.

    X11DesktopState state() const;
    std::optional<X11Client> find(xcb_window_t window) const;
    std::optional<X11Client> active() const;

    // The window of a process that was active last; among those that never were, the uppermost.
    std::optional<X11Client> mainWindow(ProcessID pid) const;
    std::optional<ApplicationNames> names(ProcessID pid) const; // of its main window

    // Whether nothing of the process is to be seen: all its windows are minimised, or the desktop is shown.
    bool isHidden(ProcessID pid) const;

    std::vector<X11Client> stacking() const;  // listed windows, bottom to top
    std::vector<ProcessID> processes() const; // of listed windows; sorted, each once

    // Main thread.

    // The client that a window is, or is the frame of; none for other windows.
    xcb_window_t clientOf(xcb_window_t window) const;
    std::vector<xcb_window_t> windows() const;

    // A window that was known keeps its place and history.
    void store(X11ClientRecord record);
    void update(const X11Client& client); // as `store`, for a known window whose names stay
    void remove(xcb_window_t window);
    void setState(const X11DesktopState& state);
    void setStacking(std::span<const xcb_window_t> bottomToTop); // windows without a record are passed over

    // A child of the root has a new rectangle. The client that it frames, and whether it changed its size; absent
    // when it frames none, or was measured after the event (`sequence`) had been sent.
    struct Configured {
        xcb_window_t client = XCB_WINDOW_NONE;
        bool resized = false;
    };
    std::optional<Configured> configureFrame(xcb_window_t frame, const PixelRect& outer, std::uint32_t sequence);

    // What has changed since the last call, window by window.
    std::vector<X11ClientNotice> takeNotices();

private:
    struct Entry {
        X11ClientRecord record;
        std::optional<X11Client> reported; // as told in the last notices; absent when it is new
        std::uint64_t activation = 0;      // greater: active more recently; 0: never
        bool isListed = false;
    };

    const Entry* entry(xcb_window_t window) const;
    Entry* entry(xcb_window_t window);
    const Entry* mainEntry(ProcessID pid) const;

    mutable std::mutex m_lock;    // guards all of the following
    std::vector<Entry> m_entries; // listed ones bottom to top, then the others
    std::vector<X11ClientNotice> m_vanished;
    X11DesktopState m_state;
    std::uint64_t m_activations = 0;
};

} // namespace haloric
