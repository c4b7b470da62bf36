// One overlay window: an override-redirect X window that shows a view. X11Space converts its frame to pixels: origin
// and size are rounded to the nearest pixel separately, and the view is drawn at the frame's exact offset. A move is
// sent at once; everything else is sent before the loop waits. Main thread.
//
// Compositors keep all pixels of a window. So a window that would be far larger than the monitors together is cut to
// them, and has the number 0 while it is: its place is not that of the frame.
#pragma once

#include "drawing/PixelRect.h"
#include "hosts/x11/overlay/X11OverlaySurface.h"
#include "platform/ToolkitWindow.h"

#include <cstdint>
#include <memory>
#include <optional>

namespace haloric {

class X11ToolkitWindows;

class X11ToolkitWindow final : public ToolkitWindow {
public:
    // `windows` makes and draws it; `windows` and the delegate outlive it.
    X11ToolkitWindow(X11ToolkitWindows& windows, const ToolkitWindowConfiguration& configuration,
                     const ToolkitWindowDelegate& delegate);
    ~X11ToolkitWindow() override;
    X11ToolkitWindow(const X11ToolkitWindow&) = delete;
    X11ToolkitWindow& operator=(const X11ToolkitWindow&) = delete;

    Rect frame() const override { return m_frame; }
    void setFrame(const Rect& frame, bool display) override;
    void setFrameOrigin(Point origin) override;
    bool isVisible() const override { return m_visible; }
    void orderFront() override;
    void orderOut() override;
    std::int64_t windowNumber() const override { return isCut() ? 0 : m_surface->window(); } // changes with the surface
    void setContentView(ContentView& view) override;
    void setNeedsDisplay() override;
    void setNeedsDisplay(std::span<const Rect> parts) override;

    xcb_window_t window() const { return m_surface->window(); }

    // Called by X11ToolkitWindows, as are the next three. Draws the damaged part; false if there was nothing to do.
    bool paint();

    // The server has lost `part` by the request with the number `request`. Parts drawn after that request are kept.
    void expose(const PixelRect& part, std::uint32_t request);

    // Replaces the surface by one of the current kind at the same place. One round trip.
    void renewSurface();

    // The space of points has changed: moves to where the frame is now.
    void placeAgain() { setFrame(m_frame, true); }

private:
    X11ViewContent content() const;
    X11ViewContent::Place place() const;
    PixelRect allPixels() const { return {0, 0, m_pixels.width, m_pixels.height}; }
    bool isCut() const { return m_pixels.width != m_whole.width || m_pixels.height != m_whole.height; }
    PixelRect partToShow(const PixelRect& whole) const;
    void configure();

    X11ToolkitWindows& m_windows;
    const ToolkitWindowDelegate& m_delegate;
    std::unique_ptr<X11OverlaySurface> m_surface;
    ContentView* m_view = nullptr;
    Rect m_frame;
    PixelRect m_pixels{0, 0, 1, 1}; // as last sent to the server
    PixelRect m_whole = m_pixels;   // the frame, of which m_pixels is a part
    Point m_offset;                 // pixels, from the corner of m_whole to the frame's
    bool m_visible = false;
    PixelRegion m_damage;
    std::optional<std::uint32_t> m_completeSince; // the request after which the content was complete
};

} // namespace haloric
