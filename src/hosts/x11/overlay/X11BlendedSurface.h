// An overlay as a 32-bit window, for screens with a compositor. The transparent part of a view is neither drawn nor
// sent to the server. Main thread.
#pragma once

#include "drawing/raster/RasterResources.h"
#include "hosts/x11/overlay/X11ClickThroughWindow.h"
#include "hosts/x11/overlay/X11ImageUploader.h"
#include "hosts/x11/overlay/X11OverlaySurface.h"

namespace haloric {

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

} // namespace haloric
