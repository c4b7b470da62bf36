// The X window behind an overlay, and how the content of a view gets into it: blended by a compositor, or as an opaque
// ring without one. Main thread.
#pragma once

#include "drawing/PixelRect.h"
#include "drawing/PixelRegion.h"
#include "drawing/raster/RasterResources.h"
#include "foundation/Color.h"
#include "foundation/Geometry.h"
#include "hosts/x11/overlay/X11ClickThroughWindow.h"
#include "hosts/x11/overlay/X11ImageUploader.h"
#include "platform/ContentView.h"

#include <optional>
#include <vector>

#include <xcb/xcb.h>

namespace haloric {

// A view to be drawn into a window of its size. Pixels count from the window's upper left corner, y downward.
struct X11ViewContent {
    // How the view lies in the window.
    struct Place {
        int left = 0; // columns and rows of the view's pixels that are cut off
        int top = 0;
        Point offset = {}; // pixels, from the corner of the view's first pixel to the view's, half a pixel at most
        friend bool operator==(const Place&, const Place&) = default;
    };

    ContentView& view;
    Size size;        // points
    double scale = 1; // pixels per point
    PixelRect pixels; // the whole window
    Place place = {};

    Rect bounds() const { return {0, 0, size.width, size.height}; }

    // Every pixel of the window that a rectangle of the view touches.
    PixelRect toPixels(const Rect& rect) const;
};

class X11OverlaySurface {
public:
    virtual ~X11OverlaySurface() = default;

    virtual xcb_window_t window() const = 0;

    // Draws the damaged part of the view. Returns what remains to be drawn on a later turn of the loop.
    virtual PixelRegion paint(const X11ViewContent& content, const PixelRegion& damage) = 0;

    // The window was hidden, and the server has dropped its content.
    virtual void forget() = 0;
};

// An overlay as a 32-bit window, for screens with a compositor. The transparent part of a view is neither drawn nor
// sent to the server.
class X11BlendedSurface final : public X11OverlaySurface {
public:
    // All outlive it.
    X11BlendedSurface(X11Connection& connection, xcb_visualid_t visual, X11ImageUploader& uploader,
                      RasterResources& resources);

    xcb_window_t window() const override { return m_window.id(); }
    PixelRegion paint(const X11ViewContent& content, const PixelRegion& damage) override;
    void forget() override { m_painted.clear(); }

private:
    bool draw(const X11ViewContent& content, const PixelRect& band);

    X11Connection& m_connection;
    X11ImageUploader& m_uploader;
    RasterResources& m_resources;
    X11ClickThroughWindow m_window;
    PixelRegion m_painted; // every pixel outside it is transparent
};

// An overlay as an opaque window with the bounding shape of the strokes that its view draws: the border and the pulse.
// For screens without a compositor, where no window is translucent.
class X11RingSurface final : public X11OverlaySurface {
public:
    // The connection outlives it.
    explicit X11RingSurface(X11Connection& connection);

    xcb_window_t window() const override { return m_window.id(); }
    PixelRegion paint(const X11ViewContent& content, const PixelRegion& damage) override;
    void forget() override {} // the server repaints the window with its background

private:
    void setShape(const std::vector<PixelRect>& rects);
    void setColor(const Color& color);

    X11Connection& m_connection;
    X11ClickThroughWindow m_window;
    std::vector<PixelRect> m_shape;
    std::optional<Color> m_color;
};

} // namespace haloric
