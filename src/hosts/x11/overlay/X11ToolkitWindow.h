// One overlay window: an override-redirect X window that shows a view. X11Space converts its frame to pixels: origin
// and size are rounded to the nearest pixel separately, and the view is drawn at the frame's exact offset. A move is
// sent at once; everything else is sent before the loop waits. Main thread.
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
    std::int64_t windowNumber() const override { return m_surface->window(); } // changes with the surface
    void setContentView(ContentView& view) override;
    void setNeedsDisplay() override;
    void setNeedsDisplay(std::span<const Rect> parts) override;

    // Called by X11ToolkitWindows, as are the next two. Draws the damaged part; false if there was nothing to do.
    bool paint();

    // The server has lost `part` by the request with the number `request`. Parts drawn after that request are kept.
    void expose(const PixelRect& part, std::uint32_t request);

    // Replaces the surface by one of the current kind at the same place. One round trip.
    void renewSurface();

private:
    X11ViewContent content() const;
    PixelRect allPixels() const { return {0, 0, m_pixels.width, m_pixels.height}; }
    void configure();

    X11ToolkitWindows& m_windows;
    const ToolkitWindowDelegate& m_delegate;
    std::unique_ptr<X11OverlaySurface> m_surface;
    ContentView* m_view = nullptr;
    Rect m_frame;
    PixelRect m_pixels{0, 0, 1, 1}; // as last sent to the server
    Point m_offset;                 // pixels, from the window's corner to the frame's
    bool m_visible = false;
    PixelRegion m_damage;
    std::optional<std::uint32_t> m_completeSince; // the request after which the content was complete
};

} // namespace haloric
