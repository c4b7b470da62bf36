#include "hosts/x11/overlay/X11OverlaySurface.h"

#include "drawing/RingCanvas.h"
#include "drawing/raster/RasterCanvas.h"

#include <algorithm>
#include <cmath>

#include <xcb/shape.h>

namespace haloric {

namespace {

// Rounding errors of earlier sums must not add a pixel.
constexpr double kNoise = 1e-6;

int cut(double pixel, int limit)
{
    return std::isnan(pixel) ? 0 : static_cast<int>(std::clamp(pixel, 0.0, static_cast<double>(limit)));
}

std::uint16_t component(double value)
{
    constexpr double kFull = 65535;
    return static_cast<std::uint16_t>(std::lround(std::clamp(value, 0.0, 1.0) * kFull));
}

} // namespace

PixelRect X11ViewContent::toPixels(const Rect& rect) const
{
    const double x = place.offset.x - place.left;
    const double y = place.offset.y - place.top;
    const int left = cut(std::floor(rect.minX() * scale + x + kNoise), pixels.width);
    const int right = cut(std::ceil(rect.maxX() * scale + x - kNoise), pixels.width);
    const int top = cut(std::floor((size.height - rect.maxY()) * scale + y + kNoise), pixels.height);
    const int bottom = cut(std::ceil((size.height - rect.minY()) * scale + y - kNoise), pixels.height);
    return {left, top, right - left, bottom - top};
}

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
    const RasterView view{content.scale, content.size, band.x + content.place.left, band.y + content.place.top,
                          content.place.offset};
    RasterCanvas canvas(m_resources, buffer, view, RasterContents::cleared);
    content.view.draw(canvas, content.bounds());
    m_uploader.put(window(), band.x, band.y);
    return true;
}

X11RingSurface::X11RingSurface(X11Connection& connection) : m_connection(connection), m_window(connection, std::nullopt)
{
    m_shape.push_back({0, 0, 1, 1}); // differs from the next line, which then has an effect
    setShape({});
}

PixelRegion X11RingSurface::paint(const X11ViewContent& content, const PixelRegion&)
{
    RingCanvas canvas(content.scale, content.size, content.place.offset);
    content.view.draw(canvas, content.bounds());
    if (canvas.color())
        setColor(*canvas.color());
    std::vector<PixelRect> ring;
    for (PixelRect rect : canvas.rects()) {
        rect.x -= content.place.left;
        rect.y -= content.place.top;
        rect = intersection(rect, content.pixels);
        if (!rect.empty())
            ring.push_back(rect);
    }
    setShape(ring);
    return {};
}

void X11RingSurface::setShape(const std::vector<PixelRect>& rects)
{
    if (rects == m_shape || !m_connection.has(&xcb_shape_id))
        return;
    m_shape = rects;
    std::vector<xcb_rectangle_t> wire;
    wire.reserve(rects.size());
    for (const PixelRect& rect : rects) {
        wire.push_back({static_cast<std::int16_t>(rect.x), static_cast<std::int16_t>(rect.y),
                        static_cast<std::uint16_t>(rect.width), static_cast<std::uint16_t>(rect.height)});
    }
    xcb_shape_rectangles(m_connection.raw(), XCB_SHAPE_SO_SET, XCB_SHAPE_SK_BOUNDING, XCB_CLIP_ORDERING_UNSORTED,
                         window(), 0, 0, static_cast<std::uint32_t>(wire.size()), wire.data());
}

void X11RingSurface::setColor(const Color& color)
{
    if (color == m_color)
        return;
    m_color = color;
    xcb_connection_t* raw = m_connection.raw();
    const auto cookie = xcb_alloc_color(raw, m_connection.screen().default_colormap, component(color.red),
                                        component(color.green), component(color.blue));
    const XcbReply<xcb_alloc_color_reply_t> reply(xcb_alloc_color_reply(raw, cookie, nullptr));
    if (!reply)
        return; // the palette is full: keep the previous colour
    xcb_change_window_attributes(raw, window(), XCB_CW_BACK_PIXEL, &reply->pixel);
    xcb_clear_area(raw, 0, window(), 0, 0, 0, 0); // the whole window
}

} // namespace haloric
