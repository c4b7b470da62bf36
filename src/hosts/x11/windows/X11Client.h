// What is known of one managed window and of the desktop as a whole: where a window is seen, its state, and how it can
// change. Plain values.
#pragma once

#include "drawing/PixelRect.h"
#include "foundation/Ids.h"
#include "hosts/linux/files/DesktopEntries.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <xcb/xcb.h>

namespace haloric {

class X11Property;

// Widths of the four sides of a decoration or a shadow.
struct X11Extents {
    int left = 0;
    int right = 0;
    int top = 0;
    int bottom = 0;

    // Absent unless the property holds four numbers, and opposite ones leave something of a screen of that size.
    static std::optional<X11Extents> from(const X11Property& property, int screenWidth, int screenHeight);

    friend bool operator==(const X11Extents&, const X11Extents&) = default;
};

// The visible frame of a managed window, computed from the window that moves: its frame window, the child of the root
// that holds it. Root pixels.
//
// A frame may be larger than what is seen (some window managers give it an invisible margin to grab), and a client
// that draws its own decoration adds its shadow to its window. So the visible frame is the client's rectangle, plus
// the decoration that the window manager sets, minus the shadow that the client sets. Their places inside the frame
// window are measured once; afterwards the frame window's events are enough.
struct X11FrameGeometry {
    PixelRect frame;                      // of the frame window, borders included
    PixelRect client;                     // of the client's content; x and y relative to the frame's corner
    std::optional<X11Extents> decoration; // _NET_FRAME_EXTENTS, or what the frame window has around the client
    std::optional<X11Extents> shadow;     // _GTK_FRAME_EXTENTS

    // A window's rectangle with its borders, from its core geometry.
    static PixelRect outerRect(int x, int y, int width, int height, int borderWidth);

    // The frame window has a new rectangle. A change of size is applied to the client as well until it is measured
    // again.
    void frameConfigured(const PixelRect& outer);

    PixelRect visibleFrame() const;

    // What the frame window has around the client, in place of a property.
    X11Extents aroundClient() const;

    // The visible part of a window that is rolled up: only its decoration.
    PixelRect rolledUpFrame() const;

    friend bool operator==(const X11FrameGeometry&, const X11FrameGeometry&) = default;
};

enum class X11WindowType { normal, dialog, utility, dock, desktop, other };

// What draws the title bar. `unknown`: no property says.
enum class X11Decoration { unknown, none, windowManager, client };

struct X11Client {
    static constexpr std::uint32_t kEveryDesktop = 0xFFFFFFFF;

    xcb_window_t window = XCB_WINDOW_NONE;
    xcb_window_t frame = XCB_WINDOW_NONE; // the child of the root that holds the window; itself without a frame
    bool isFramedAlone = false;           // the frame is the window's parent, and has no other children
    X11FrameGeometry geometry;
    std::uint32_t measuredAt = 0; // sequence number of the measurement: earlier events of the frame are stale
    ProcessID pid = ProcessID::none;
    X11WindowType type = X11WindowType::normal;
    bool mapped = false; // and so is its frame
    bool hidden = false; // by the window manager's state
    bool iconic = false; // by the older convention's state
    bool shaded = false;
    bool above = false;
    std::uint32_t desktop = kEveryDesktop; // also without a property
    double opacity = 1;

    // An ordinary window, as opposed to panels, menus, splash screens and the desktop.
    bool isForWork() const
    {
        return type == X11WindowType::normal || type == X11WindowType::dialog || type == X11WindowType::utility;
    }

    PixelRect visibleFrame() const { return shaded ? geometry.rolledUpFrame() : geometry.visibleFrame(); }

    // Some window managers call a window that is rolled up hidden; its title bar is still there.
    bool isMinimised() const { return (hidden || iconic) && !shaded; }

    bool isOnDesktop(std::uint32_t current) const { return desktop == kEveryDesktop || desktop == current; }
    // On its desktop. A program may unmap its window without the window manager's knowledge.
    bool isShown() const { return !isMinimised() && (mapped || shaded); }
    bool isSeenOn(std::uint32_t current) const { return isOnDesktop(current) && isShown(); }

    X11Decoration decoration() const;
};

struct X11ClientRecord {
    X11Client client;
    ApplicationNames names;
};

struct X11DesktopState {
    xcb_window_t activeWindow = XCB_WINDOW_NONE;
    std::uint32_t currentDesktop = 0;
    bool showingDesktop = false;
    friend bool operator==(const X11DesktopState&, const X11DesktopState&) = default;
};

enum class X11ClientChange {
    appeared,
    vanished,
    moved,
    resized,
    minimised,
    restored,
    redecorated, // the height of its title bar may have changed
    otherwise,
};

// One change of a managed window.
struct X11ClientNotice {
    ProcessID pid = ProcessID::none;
    xcb_window_t window = XCB_WINDOW_NONE;
    X11ClientChange change = X11ClientChange::otherwise;

    // Appends a notice for each way in which a window differs from how it was.
    static void appendChanges(std::vector<X11ClientNotice>& notices, const X11Client& before, const X11Client& now);

    friend bool operator==(const X11ClientNotice&, const X11ClientNotice&) = default;
};

} // namespace haloric
