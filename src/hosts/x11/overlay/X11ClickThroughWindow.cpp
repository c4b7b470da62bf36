#include "hosts/x11/overlay/X11ClickThroughWindow.h"

#include <bit>
#include <string_view>

#include <xcb/shape.h>
#include <xcb/xfixes.h>

namespace haloric {

namespace {

bool hasOurLayout(const xcb_visualtype_t& visual)
{
    return visual._class == XCB_VISUAL_CLASS_TRUE_COLOR && visual.red_mask == 0xFF0000 &&
           visual.green_mask == 0x00FF00 && visual.blue_mask == 0x0000FF;
}

bool hasOurByteOrder(const X11Connection& connection)
{
    const bool serverIsLittle = connection.setup().image_byte_order == XCB_IMAGE_ORDER_LSB_FIRST;
    return serverIsLittle == (std::endian::native == std::endian::little);
}

} // namespace

std::optional<xcb_visualid_t> X11ClickThroughWindow::findTranslucentVisual(const X11Connection& connection)
{
    if (!hasOurByteOrder(connection))
        return {};
    for (auto depths = xcb_screen_allowed_depths_iterator(&connection.screen()); depths.rem > 0;
         xcb_depth_next(&depths)) {
        if (depths.data->depth != kTranslucentDepth)
            continue;
        for (auto visuals = xcb_depth_visuals_iterator(depths.data); visuals.rem > 0; xcb_visualtype_next(&visuals)) {
            if (hasOurLayout(*visuals.data))
                return visuals.data->visual_id;
        }
    }
    return {};
}

X11ClickThroughWindow::X11ClickThroughWindow(X11Connection& connection, std::optional<xcb_visualid_t> translucentVisual)
    : m_connection(connection),
      m_id(xcb_generate_id(connection.raw()))
{
    create(translucentVisual);
    letInputThrough();
    setHints();
}

X11ClickThroughWindow::~X11ClickThroughWindow()
{
    xcb_destroy_window(m_connection.raw(), m_id);
    if (m_colormap != XCB_NONE)
        xcb_free_colormap(m_connection.raw(), m_colormap);
}

void X11ClickThroughWindow::create(std::optional<xcb_visualid_t> translucentVisual)
{
    xcb_connection_t* raw = m_connection.raw();
    std::uint8_t depth = XCB_COPY_FROM_PARENT;
    xcb_visualid_t visual = XCB_COPY_FROM_PARENT;
    xcb_colormap_t colormap = XCB_COPY_FROM_PARENT;
    if (translucentVisual) {
        depth = kTranslucentDepth;
        visual = *translucentVisual;
        m_colormap = xcb_generate_id(raw);
        xcb_create_colormap(raw, XCB_COLORMAP_ALLOC_NONE, m_colormap, m_connection.root(), visual);
        colormap = m_colormap;
    }
    // A depth other than the parent's requires a border pixel and a colormap. The bit gravity keeps the content at the
    // upper left corner when the size changes.
    const std::uint32_t values[] = {0, 0, XCB_GRAVITY_NORTH_WEST, 1, XCB_EVENT_MASK_EXPOSURE, colormap};
    xcb_create_window(raw, depth, m_id, m_connection.root(), 0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, visual,
                      XCB_CW_BACK_PIXEL | XCB_CW_BORDER_PIXEL | XCB_CW_BIT_GRAVITY | XCB_CW_OVERRIDE_REDIRECT |
                          XCB_CW_EVENT_MASK | XCB_CW_COLORMAP,
                      values);
}

void X11ClickThroughWindow::letInputThrough() const
{
    // Without the extension the window would catch clicks; every server of the last decades has it.
    if (m_connection.has(&xcb_shape_id))
        xcb_shape_rectangles(m_connection.raw(), XCB_SHAPE_SO_SET, XCB_SHAPE_SK_INPUT, XCB_CLIP_ORDERING_UNSORTED, m_id,
                             0, 0, 0, nullptr);
}

void X11ClickThroughWindow::setHints() const
{
    xcb_connection_t* raw = m_connection.raw();
    const X11Atoms& atoms = m_connection.atoms();
    const auto setValues = [&](xcb_atom_t property, xcb_atom_t type, std::initializer_list<std::uint32_t> values) {
        xcb_change_property(raw, XCB_PROP_MODE_REPLACE, m_id, property, type, 32,
                            static_cast<std::uint32_t>(values.size()), values.begin());
    };
    const auto setText = [&](xcb_atom_t property, xcb_atom_t type, std::string_view text) {
        xcb_change_property(raw, XCB_PROP_MODE_REPLACE, m_id, property, type, 8,
                            static_cast<std::uint32_t>(text.size()), text.data());
    };
    setText(XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, std::string_view("haloric\0Haloric\0", 16));
    setText(atoms.name, atoms.utf8String, "Haloric overlay");

    // By default compositors draw shadows below windows and blur what is behind translucent ones. The desktop's type
    // is the only one that all of them exempt; the frame extents mark a window that draws its own shadow.
    setValues(atoms.windowType, XCB_ATOM_ATOM, {atoms.typeDesktop});
    setValues(atoms.gtkFrameExtents, XCB_ATOM_CARDINAL, {0, 0, 0, 0});
    setValues(atoms.shadow, XCB_ATOM_CARDINAL, {0});

    constexpr std::uint32_t kKeepCompositing = 2;
    setValues(atoms.bypassCompositor, XCB_ATOM_CARDINAL, {kKeepCompositing});
}

} // namespace haloric
