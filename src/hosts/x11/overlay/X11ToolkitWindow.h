// One overlay window. Frames in points become pixels by X11Space: origin and size are rounded to the nearest pixel,
// each by itself, and the view is drawn where the frame exactly is. A move is sent at once; everything else goes out
// before the loop waits. Main thread.
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
    // `windows`, which makes and draws it, and the delegate outlive it.
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
    std::int64_t windowNumber() const override { return m_surface->window(); } // changes with the kind of surface
    void setContentView(ContentView& view) override;
    void setNeedsDisplay() override;
    void setNeedsDisplay(std::span<const Rect> parts) override;

    // For X11ToolkitWindows. Draws what is damaged; false when there was nothing to do.
    bool paint();

    // The server lost a part, by request number `request`. What was drawn later than that is not lost.
    void expose(const PixelRect& part, std::uint32_t request);

    // Takes a new surface of the kind that is in force, in the place of the old one. One round trip.
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
    PixelRect m_pixels{0, 0, 1, 1}; // as the server was last told
    Point m_offset;                 // of the frame's corner from that of the pixels
    bool m_visible = false;
    PixelRegion m_damage;
    std::optional<std::uint32_t> m_completeSince; // the request after which nothing was missing
};

} // namespace haloric
