#include "drawing/raster/GeneralPainter.h"

#include <algorithm>
#include <cstdlib>

namespace haloric {

namespace {

PixelRect grown(const PixelRect& rect, int by)
{
    return {rect.x - by, rect.y - by, rect.width + 2 * by, rect.height + 2 * by};
}

PixelRect moved(const PixelRect& rect, int dx, int dy) { return {rect.x + dx, rect.y + dy, rect.width, rect.height}; }

double fraction(std::uint8_t byte) { return byte / 255.0; }

} // namespace

// Cairo's strokes depend slightly on the rendered area. A part of a view must have the pixels of the whole, so a stroke
// is always rendered for the whole view.
void GeneralPainter::renderMask(const PixelRect& area, const GeneralPaint& paint, int margin)
{
    if (paint.path.lineWidth <= 0) {
        m_mask.render(paint.path, area);
        return;
    }
    m_wholeStroke.render(paint.path, grown(paint.view, margin));
    m_mask.copyPart(m_wholeStroke, area);
}

void GeneralPainter::renderClips(const PixelRect& area, std::span<const MaskPath> clips)
{
    m_clip.renderFull(area);
    for (const MaskPath& clip : clips) {
        m_oneClip.render(clip, area);
        m_clip.multiplyBy(m_oneClip);
    }
}

void GeneralPainter::paint(const CoveragePainter& target, const PixelRect& area, const GeneralPaint& paint)
{
    if (paint.path.bounds().empty())
        return;
    if (paint.shadow && paint.mode != PaintMode::erase)
        paintShadow(target, area, paint);
    paintPath(target, area, paint);
}

void GeneralPainter::paintShadow(const CoveragePainter& target, const PixelRect& area, const GeneralPaint& paint)
{
    const PixelShadow& shadow = *paint.shadow;
    const GlowKernel kernel(shadow.blurRadius);
    const int margin = kernel.margin();
    const PixelRect reached = moved(grown(paint.path.bounds(), margin), shadow.offsetX, shadow.offsetY);
    const PixelRect part = intersection(area, reached);
    if (part.empty())
        return;
    const PixelRect unmoved = moved(part, -shadow.offsetX, -shadow.offsetY);
    renderMask(grown(unmoved, margin), paint, margin + std::max(std::abs(shadow.offsetX), std::abs(shadow.offsetY)));
    m_blur.blur(m_mask, unmoved, kernel);
    renderClips(part, paint.clips);
    const double alpha = std::clamp(paint.color.alpha, 0.0, 1.0);
    for (int y = part.y; y < part.maxY(); ++y) {
        const float* blurred = m_blur.row(y - shadow.offsetY);
        const std::uint8_t* clip = m_clip.row(y);
        std::uint32_t* pixel = target.pixel(part.x, y);
        for (int x = 0; x < part.width; ++x) {
            const double coverage = static_cast<double>(blurred[x]) * alpha * fraction(clip[x]);
            if (coverage > 0)
                blendPixels(pixel + x, 1, blendOf(shadow.color, coverage, PaintMode::over));
        }
    }
}

void GeneralPainter::paintPath(const CoveragePainter& target, const PixelRect& area, const GeneralPaint& paint)
{
    const PixelRect part = intersection(area, paint.path.bounds());
    if (part.empty())
        return;
    renderMask(part, paint, 0);
    renderClips(part, paint.clips);
    m_mask.multiplyBy(m_clip);
    for (int y = part.y; y < part.maxY(); ++y) {
        const std::uint8_t* mask = m_mask.row(y);
        std::uint32_t* pixel = target.pixel(part.x, y);
        for (int x = 0; x < part.width; ++x)
            if (mask[x] > 0)
                blendPixels(pixel + x, 1, blendOf(paint.color, fraction(mask[x]), paint.mode));
    }
}

} // namespace haloric
