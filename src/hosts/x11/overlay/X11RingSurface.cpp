#include "hosts/x11/overlay/X11RingSurface.h"

#include "drawing/RingCanvas.h"

#include <algorithm>
#include <cmath>

#include <xcb/shape.h>

namespace haloric {

namespace {

std::uint16_t component(double value)
{
    constexpr double kFull = 65535;
    return static_cast<std::uint16_t>(std::lround(std::clamp(value, 0.0, 1.0) * kFull));
}

} // namespace

X11RingSurface::X11RingSurface(X11Connection& connection) : m_connection(connection), m_window(connection, std::nullopt)
{
    m_shape.push_back({0, 0, 1, 1}); // differs from the next line, which then has an effect
    setShape({});
}

PixelRegion X11RingSurface::paint(const X11ViewContent& content, const PixelRegion&)
{
    RingCanvas canvas(content.scale, content.size, content.offset);
    content.view.draw(canvas, content.bounds());
    if (canvas.color())
        setColor(*canvas.color());
    setShape(canvas.rects());
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
