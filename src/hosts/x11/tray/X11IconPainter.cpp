#include "hosts/x11/tray/X11IconPainter.h"

#include <bit>

namespace haloric {

namespace {

constexpr std::uint8_t kDepth = 32;

bool isPremultipliedRgb(const xcb_render_pictforminfo_t& format)
{
    return format.type == XCB_RENDER_PICT_TYPE_DIRECT && format.depth == kDepth && format.direct.alpha_shift == 24 &&
           format.direct.alpha_mask == 0xFF && format.direct.red_shift == 16 && format.direct.green_shift == 8 &&
           format.direct.blue_shift == 0;
}

bool hasOurByteOrder(xcb_connection_t* connection)
{
    const auto* setup = xcb_get_setup(connection);
    const bool serverIsLittle = setup && setup->image_byte_order == XCB_IMAGE_ORDER_LSB_FIRST; // none once it has gone
    return serverIsLittle == (std::endian::native == std::endian::little);
}

} // namespace

void X11IconPainter::findFormats(xcb_visualid_t visual)
{
    m_visual = visual;
    m_windowFormat = 0;
    xcb_connection_t* raw = m_connection.raw();
    if (!m_connection.has(&xcb_render_id))
        return;
    const XcbReply<xcb_render_query_pict_formats_reply_t> formats(
        xcb_render_query_pict_formats_reply(raw, xcb_render_query_pict_formats(raw), nullptr));
    if (!formats)
        return;
    for (auto format = xcb_render_query_pict_formats_formats_iterator(formats.get()); format.rem > 0;
         xcb_render_pictforminfo_next(&format)) {
        if (isPremultipliedRgb(*format.data))
            m_pictureFormat = format.data->id;
    }
    auto screen = xcb_render_query_pict_formats_screens_iterator(formats.get());
    for (; screen.rem > 0; xcb_render_pictscreen_next(&screen)) {
        for (auto depth = xcb_render_pictscreen_depths_iterator(screen.data); depth.rem > 0;
             xcb_render_pictdepth_next(&depth)) {
            for (auto entry = xcb_render_pictdepth_visuals_iterator(depth.data); entry.rem > 0;
                 xcb_render_pictvisual_next(&entry)) {
                if (entry.data->visual == visual)
                    m_windowFormat = entry.data->format;
            }
        }
    }
}

xcb_pixmap_t X11IconPainter::upload(const Picture& picture)
{
    xcb_connection_t* raw = m_connection.raw();
    std::vector<std::uint32_t> pixels = picture.pixels;
    if (!hasOurByteOrder(raw)) {
        for (std::uint32_t& pixel : pixels)
            pixel = __builtin_bswap32(pixel);
    }
    const auto width = static_cast<std::uint16_t>(picture.width);
    const auto height = static_cast<std::uint16_t>(picture.height);
    const xcb_pixmap_t pixmap = xcb_generate_id(raw);
    const xcb_gcontext_t context = xcb_generate_id(raw);
    xcb_create_pixmap(raw, kDepth, pixmap, m_connection.root(), width, height);
    xcb_create_gc(raw, context, pixmap, 0, nullptr);
    xcb_put_image(raw, XCB_IMAGE_FORMAT_Z_PIXMAP, pixmap, context, width, height, 0, 0, 0, kDepth,
                  static_cast<std::uint32_t>(pixels.size() * sizeof pixels[0]),
                  reinterpret_cast<const std::uint8_t*>(pixels.data()));
    xcb_free_gc(raw, context);
    return pixmap;
}

void X11IconPainter::paint(xcb_window_t window, xcb_visualid_t visual, const Picture& picture, int windowWidth,
                           int windowHeight)
{
    xcb_connection_t* raw = m_connection.raw();
    xcb_clear_area(raw, 0, window, 0, 0, 0, 0);
    if (visual != m_visual)
        findFormats(visual);
    if (m_windowFormat == 0 || m_pictureFormat == 0 || picture.pixels.empty())
        return;
    const xcb_pixmap_t pixmap = upload(picture);
    const xcb_render_picture_t source = xcb_generate_id(raw);
    const xcb_render_picture_t target = xcb_generate_id(raw);
    xcb_render_create_picture(raw, source, pixmap, m_pictureFormat, 0, nullptr);
    xcb_render_create_picture(raw, target, window, m_windowFormat, 0, nullptr);
    xcb_render_composite(raw, XCB_RENDER_PICT_OP_OVER, source, XCB_RENDER_PICTURE_NONE, target, 0, 0, 0, 0,
                         static_cast<std::int16_t>((windowWidth - picture.width) / 2),
                         static_cast<std::int16_t>((windowHeight - picture.height) / 2),
                         static_cast<std::uint16_t>(picture.width), static_cast<std::uint16_t>(picture.height));
    xcb_render_free_picture(raw, target);
    xcb_render_free_picture(raw, source);
    xcb_free_pixmap(raw, pixmap);
}

} // namespace haloric
