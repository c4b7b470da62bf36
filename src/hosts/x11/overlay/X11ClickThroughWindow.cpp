#include "hosts/x11/overlay/X11ClickThroughWindow.h"

#include "hosts/x11/overlay/X11TranslucentVisual.h"

#include <string_view>

#include <xcb/shape.h>
#include <xcb/xfixes.h>

namespace haloric {

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
        depth = X11TranslucentVisual::kDepth;
        visual = *translucentVisual;
        m_colormap = xcb_generate_id(raw);
        xcb_create_colormap(raw, XCB_COLORMAP_ALLOC_NONE, m_colormap, m_connection.root(), visual);
        colormap = m_colormap;
    }
    // A border pixel and a colormap must be given where the depth is not the parent's. The upper left corner holds the
    // content when the size changes, as the content is placed from there.
    const std::uint32_t values[] = {0, 0, XCB_GRAVITY_NORTH_WEST, 1, XCB_EVENT_MASK_EXPOSURE, colormap};
    xcb_create_window(raw, depth, m_id, m_connection.root(), 0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, visual,
                      XCB_CW_BACK_PIXEL | XCB_CW_BORDER_PIXEL | XCB_CW_BIT_GRAVITY | XCB_CW_OVERRIDE_REDIRECT |
                          XCB_CW_EVENT_MASK | XCB_CW_COLORMAP,
                      values);
}

void X11ClickThroughWindow::letInputThrough() const
{
    // Without the extension the window would catch clicks; servers without it have not been built for decades.
    if (m_connection.has(&xcb_shape_id))
        xcb_shape_rectangles(m_connection.raw(), XCB_SHAPE_SO_SET, XCB_SHAPE_SK_INPUT, XCB_CLIP_ORDERING_UNSORTED, m_id,
                             0, 0, 0, nullptr);
}

void X11ClickThroughWindow::setHints() const
{
    xcb_connection_t* raw = m_connection.raw();
    const auto setValues = [&](std::string_view property, xcb_atom_t type,
                               std::initializer_list<std::uint32_t> values) {
        xcb_change_property(raw, XCB_PROP_MODE_REPLACE, m_id, m_connection.atom(property), type, 32,
                            static_cast<std::uint32_t>(values.size()), values.begin());
    };
    const auto setText = [&](std::string_view property, xcb_atom_t type, std::string_view text) {
        xcb_change_property(raw, XCB_PROP_MODE_REPLACE, m_id, m_connection.atom(property), type, 8,
                            static_cast<std::uint32_t>(text.size()), text.data());
    };
    setText("WM_CLASS", XCB_ATOM_STRING, std::string_view("haloric\0Haloric\0", 16));
    setText("_NET_WM_NAME", m_connection.atom("UTF8_STRING"), "Haloric overlay");

    // Compositors draw shadows below whatever they do not know better, and blur what is behind translucent windows.
    // Of the types, the desktop's is the one that they all leave alone; a frame extent marks windows that bring their
    // own shadow.
    setValues("_NET_WM_WINDOW_TYPE", XCB_ATOM_ATOM, {m_connection.atom("_NET_WM_WINDOW_TYPE_DESKTOP")});
    setValues("_GTK_FRAME_EXTENTS", XCB_ATOM_CARDINAL, {0, 0, 0, 0});
    setValues("_COMPTON_SHADOW", XCB_ATOM_CARDINAL, {0});

    constexpr std::uint32_t kKeepCompositing = 2;
    setValues("_NET_WM_BYPASS_COMPOSITOR", XCB_ATOM_CARDINAL, {kKeepCompositing});
}

} // namespace haloric
