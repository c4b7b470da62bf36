// The same glow drawn with Cairo in two common ways, for comparison.
#pragma once

#include "drawing/raster/PixelBuffer.h"
#include "foundation/Geometry.h"

#include <memory>

struct _cairo_surface;
struct _cairo;

namespace haloric::bench {

// A glow around `window`. Lengths are pixels, y downward, the buffer's first pixel at (0, 0).
struct PeerGlow {
    Rect window;
    double cornerRadius = 0;
    double blurRadius = 0;
};

// As widget toolkits draw the shadow of a rounded box: the blurred mask of a small box, made once, drawn as a
// nine-patch of mask patterns under an even-odd clip.
class NinePatchPeer {
public:
    explicit NinePatchPeer(const PeerGlow& glow);
    void draw(const PixelBuffer& buffer, const PeerGlow& glow) const;

private:
    void drawPiece(_cairo* context, const Rect& from, const Rect& to) const;

    int m_corner; // pixels of a corner of the mask, including the blur
    std::shared_ptr<_cairo_surface> m_mask;
};

// Without a cache: the mask of the whole window, blurred by three box filters in each direction.
void drawWithBoxBlurs(const PixelBuffer& buffer, const PeerGlow& glow);

} // namespace haloric::bench
