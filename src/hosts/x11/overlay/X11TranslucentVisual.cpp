#include "hosts/x11/overlay/X11TranslucentVisual.h"

#include <bit>

namespace haloric {

namespace {

bool hasOurLayout(const xcb_visualtype_t& visual)
{
    return visual._class == XCB_VISUAL_CLASS_TRUE_COLOR && visual.red_mask == 0xFF0000 &&
           visual.green_mask == 0x00FF00 && visual.blue_mask == 0x0000FF;
}

bool hasOurByteOrder(const X11Connection& connection)
{
    const bool serverIsLittle = xcb_get_setup(connection.raw())->image_byte_order == XCB_IMAGE_ORDER_LSB_FIRST;
    return serverIsLittle == (std::endian::native == std::endian::little);
}

} // namespace

std::optional<xcb_visualid_t> X11TranslucentVisual::find(const X11Connection& connection)
{
    if (!hasOurByteOrder(connection))
        return {};
    for (auto depths = xcb_screen_allowed_depths_iterator(&connection.screen()); depths.rem > 0;
         xcb_depth_next(&depths)) {
        if (depths.data->depth != kDepth)
            continue;
        for (auto visuals = xcb_depth_visuals_iterator(depths.data); visuals.rem > 0; xcb_visualtype_next(&visuals)) {
            if (hasOurLayout(*visuals.data))
                return visuals.data->visual_id;
        }
    }
    return {};
}

} // namespace haloric
