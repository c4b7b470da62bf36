// Paints any path under any clip, with or without a shadow, by masks that Cairo renders. Used for what CoveragePainter
// and GlowTiles cannot draw. Main thread.
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
    PixelRect view; // all pixels of the view
    std::span<const MaskPath> clips;
    std::optional<PixelShadow> shadow; // ignored when erasing
    Color color;
    PaintMode mode = PaintMode::over;
};

class GeneralPainter {
public:
    // `area`: the view's pixels that may be painted, all of them in the target.
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
