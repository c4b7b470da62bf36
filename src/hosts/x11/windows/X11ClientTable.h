// The managed windows and the state of the desktop, as last read from the X server. Main thread. Pointers and spans
// that it returns hold until the next call that is not const.
#pragma once

#include "hosts/x11/windows/X11Client.h"

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace haloric {

class X11ClientTable {
public:
    const X11DesktopState& state() const { return m_state; }
    const X11Client* find(xcb_window_t window) const; // null: no managed window
    const X11Client* active() const;                  // null: none, or no managed one

    // The window of a process that was active last; among those that never were, the uppermost. Null without a window.
    const X11Client* mainWindow(ProcessID pid) const;
    const ApplicationNames* names(ProcessID pid) const; // of its main window

    // Whether all windows of the process are minimised, or the desktop is shown instead of any windows.
    bool isHidden(ProcessID pid) const;

    std::vector<const X11Client*> stacking() const; // listed windows, bottom to top
    std::vector<ProcessID> processes() const;       // of listed windows; sorted, without duplicates

    // The client that a window is, or is the frame of; XCB_WINDOW_NONE for other windows.
    xcb_window_t clientOf(xcb_window_t window) const;
    std::vector<xcb_window_t> windows() const;

    // A window that was known keeps its place and history.
    void store(X11ClientRecord record);
    X11Client* edit(xcb_window_t window); // null: no managed window
    void remove(xcb_window_t window);
    void setState(const X11DesktopState& state);
    void setStacking(std::span<const xcb_window_t> bottomToTop); // windows without a record are skipped

    // A child of the root has a new rectangle. Returns the client that it frames, and whether its size has changed;
    // absent when it frames none, or was measured after the event (`sequence`) had been sent.
    struct Configured {
        xcb_window_t client = XCB_WINDOW_NONE;
        bool resized = false;
    };
    std::optional<Configured> configureFrame(xcb_window_t frame, const PixelRect& outer, std::uint32_t sequence);

    // What has changed since the last call.
    std::vector<X11ClientNotice> takeNotices();

private:
    struct Entry {
        X11ClientRecord record;
        std::optional<X11Client> reported; // as of the last notices; absent when it is new
        std::uint64_t activation = 0;      // greater: active more recently; 0: never
        bool isListed = false;
    };

    const Entry* entry(xcb_window_t window) const;
    Entry* entry(xcb_window_t window);
    const Entry* mainEntry(ProcessID pid) const;

    std::vector<Entry> m_entries; // listed ones bottom to top, then the others
    std::vector<X11ClientNotice> m_vanished;
    X11DesktopState m_state;
    std::uint64_t m_activations = 0;
};

} // namespace haloric
