// An overlay as an opaque window with the bounding shape of the strokes that its view draws: the border and the pulse.
// For screens without a compositor, where no window is translucent. Main thread.
#pragma once

#include "foundation/Color.h"
#include "hosts/x11/overlay/X11ClickThroughWindow.h"
#include "hosts/x11/overlay/X11OverlaySurface.h"

#include <optional>
#include <vector>

namespace haloric {

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
