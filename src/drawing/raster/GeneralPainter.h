// Paints any path under any clip, with a shadow or without: by masks of the pixels concerned, as Cairo makes them. What
// the exact rows and the glow patches cannot do ends here. Main thread.
#pragma once

#include "drawing/raster/CoveragePainter.h"
#include "drawing/raster/MaskBlur.h"
#include "drawing/raster/PathMask.h"
#include "foundation/Color.h"

#include <optional>
#include <span>

namespace haloric {

// A shadow in pixels, y downward.
struct PixelShadow {
    double blurRadius = 0; // at most GlowKernel::kMaxBlurRadius
    int offsetX = 0;
    int offsetY = 0;
    Color color;
};

struct GeneralPaint {
    MaskPath path;
    PixelRect view; // all pixels of the view that the drawing is a part of
    std::span<const MaskPath> clips;
    std::optional<PixelShadow> shadow; // left out when erasing
    Color color;
    PaintMode mode = PaintMode::over;
};

class GeneralPainter {
public:
    // `area`: the view's pixels to touch at most, all of them in the target.
    void paint(const CoveragePainter& target, const PixelRect& area, const GeneralPaint& paint);

private:
    void paintShadow(const CoveragePainter& target, const PixelRect& area, const GeneralPaint& paint);
    void paintPath(const CoveragePainter& target, const PixelRect& area, const GeneralPaint& paint);
    void renderMask(const PixelRect& area, const GeneralPaint& paint, int margin);
    void renderClips(const PixelRect& area, std::span<const MaskPath> clips);

    PathMask m_mask;
    PathMask m_wholeStroke;
    PathMask m_clip;
    PathMask m_oneClip;
    MaskBlur m_blur;
};

} // namespace haloric
