#include "hosts/x11/overlay/X11BlendedSurface.h"

#include "drawing/raster/RasterCanvas.h"

namespace haloric {

X11BlendedSurface::X11BlendedSurface(X11Connection& connection, xcb_visualid_t visual, X11ImageUploader& uploader,
                                     RasterResources& resources)
    : m_connection(connection),
      m_uploader(uploader),
      m_resources(resources),
      m_window(connection, visual)
{
}

PixelRegion X11BlendedSurface::paint(const X11ViewContent& content, const PixelRegion& damage)
{
    PixelRegion painted;
    for (const Rect& rect : content.view.paintedArea(content.bounds()))
        painted.add(content.toPixels(rect));

    const PixelRegion stale = m_painted.intersectedWith(damage).minus(painted);
    for (const PixelRect& rect : stale.rects()) {
        xcb_clear_area(m_connection.raw(), 0, window(), static_cast<std::int16_t>(rect.x),
                       static_cast<std::int16_t>(rect.y), static_cast<std::uint16_t>(rect.width),
                       static_cast<std::uint16_t>(rect.height));
    }
    PixelRegion left;
    bool busy = false;
    for (const PixelRect& band : painted.intersectedWith(damage).bands(m_uploader.maximumPixels())) {
        busy = busy || !draw(content, band);
        if (busy)
            left.add(band);
    }
    m_uploader.finish();
    m_painted = std::move(painted);
    return left;
}

bool X11BlendedSurface::draw(const X11ViewContent& content, const PixelRect& band)
{
    const PixelBuffer buffer = m_uploader.reserve(band.width, band.height);
    if (!buffer.data)
        return false;
    const RasterView view{content.scale, content.size, band.x, band.y, content.offset};
    RasterCanvas canvas(m_resources, buffer, view, RasterContents::cleared);
    content.view.draw(canvas, content.bounds());
    m_uploader.put(window(), band.x, band.y);
    return true;
}

} // namespace haloric
