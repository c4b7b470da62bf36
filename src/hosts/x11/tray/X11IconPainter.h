// Draws a picture over the background of a window, with the RENDER extension. Main thread.
#pragma once

#include "drawing/raster/Picture.h"
#include "hosts/x11/server/X11Connection.h"

#include <cstdint>

#include <xcb/render.h>

namespace haloric {

class X11IconPainter {
public:
    // The connection outlives it.
    explicit X11IconPainter(X11Connection& connection) : m_connection(connection) {}

    // Clears the window, which has that visual, and draws the picture in its middle. Pixels are premultiplied. Only the
    // cleared window is left where the server lacks the extension.
    void paint(xcb_window_t window, xcb_visualid_t visual, const Picture& picture, int windowWidth, int windowHeight);

private:
    void findFormats(xcb_visualid_t visual);
    xcb_pixmap_t upload(const Picture& picture);

    X11Connection& m_connection;
    xcb_visualid_t m_visual = 0;                 // the one that the formats were looked up for
    xcb_render_pictformat_t m_windowFormat = 0;  // 0: none was found
    xcb_render_pictformat_t m_pictureFormat = 0; // 32 bits with alpha
};

} // namespace haloric
