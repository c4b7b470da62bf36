#include "drawing/raster/RasterCanvas.h"

#include <array>
#include <cmath>

namespace haloric {

namespace {

constexpr double kMaxShadowOffset = 1 << 16; // pixels

int wholeOffset(double points, double scale)
{
    const double pixels = points * scale;
    return std::isnan(pixels) ? 0
                              : static_cast<int>(std::lround(std::clamp(pixels, -kMaxShadowOffset, kMaxShadowOffset)));
}

PixelRect everywhere(const PixelBuffer& buffer, const RasterView& view)
{
    return {view.originX, view.originY, buffer.width, buffer.height};
}

} // namespace

RasterCanvas::RasterCanvas(RasterResources& resources, const PixelBuffer& buffer, const RasterView& view,
                           RasterContents contents, RasterWays ways)
    : RasterCanvas(resources, buffer, view, contents, std::array{everywhere(buffer, view)}, ways)
{
}

RasterCanvas::RasterCanvas(RasterResources& resources, const PixelBuffer& buffer, const RasterView& view,
                           RasterContents contents, std::span<const PixelRect> damage, RasterWays ways)
    : m_resources(resources),
      m_space(view.scale, view.size, view.offset),
      m_ways(ways),
      m_transparent(contents != RasterContents::kept)
{
    resources.coverage.setTarget(buffer, view.originX, view.originY);
    resources.clipShapes.clear();
    resources.clips.clear();
    resources.states.clear();
    resources.area.clear();
    for (const PixelRect& rect : damage)
        resources.area.add(intersection(rect, everywhere(buffer, view)));
    if (contents == RasterContents::cleared)
        for (const PixelRect& area : resources.area.rects())
            for (int y = area.y; y < area.maxY(); ++y)
                fillPixels(resources.coverage.pixel(area.x, y), static_cast<std::size_t>(area.width), 0);
    resources.area.limitTo(m_space.pixels());
}

void RasterCanvas::save() { m_resources.states.push_back(m_state); }

void RasterCanvas::restore()
{
    if (m_resources.states.empty())
        return;
    m_state = m_resources.states.back();
    m_resources.states.pop_back();
    m_resources.clips.resize(m_state.clips);
    const std::size_t shapes =
        m_resources.clips.empty() ? 0 : m_resources.clips.back().firstShape + m_resources.clips.back().shapes;
    m_resources.clipShapes.resize(shapes);
}

void RasterCanvas::clip(const Path& path, FillRule rule)
{
    std::vector<DeviceShape>& shapes = m_resources.clipShapes;
    const std::size_t first = shapes.size();
    for (const Path::Shape& shape : path.shapes())
        shapes.push_back(m_space.shape(shape));
    m_resources.clips.push_back({first, shapes.size() - first, rule});
    m_state.clips = m_resources.clips.size();
}

void RasterCanvas::setShadow(const Shadow& shadow) { m_state.shadow = shadow; }

void RasterCanvas::setBlendMode(BlendMode mode) { m_state.blendMode = mode; }

void RasterCanvas::fill(const Path& path, const Color& color, FillRule rule)
{
    m_resources.shapes.clear();
    for (const Path::Shape& shape : path.shapes())
        m_resources.shapes.push_back(m_space.shape(shape));
    paintFill(color, rule, blendedMode());
}

void RasterCanvas::fillRect(const Rect& rect, const Color& color, CompositingOperation operation)
{
    m_resources.shapes.assign({m_space.shape(rect)});
    const bool copies = operation == CompositingOperation::copy;
    paintFill(color, FillRule::nonZero, copies ? PaintMode::copy : blendedMode());
}

void RasterCanvas::stroke(const Path& path, const Color& color, double lineWidth)
{
    m_resources.shapes.clear();
    for (const Path::Shape& shape : path.shapes())
        m_resources.shapes.push_back(m_space.shape(shape));
    if (path.shapes().size() == 1 && !castsShadow()) {
        const StrokeOutline outline = m_space.stroke(path.shapes().front(), lineWidth);
        if (paintRows({outline.outer, outline.inner}, color, blendedMode()))
            return;
    }
    if (lineWidth > 0 && std::isfinite(lineWidth))
        paintGenerally({m_resources.shapes, FillRule::nonZero, m_space.length(lineWidth, kMaxShadowOffset)}, color,
                       blendedMode());
}

void RasterCanvas::strokeLines(std::span<const Polyline> lines, const Color& color, const LineStyle& style)
{
    if (!(style.width > 0) || !std::isfinite(style.width))
        return;
    std::vector<DevicePoint>& points = m_resources.linePoints;
    points.clear();
    for (const Polyline& line : lines)
        m_space.addLine(line, points);
    paintGenerally({.shapes = {},
                    .lineWidth = m_space.length(style.width, kMaxShadowOffset),
                    .linePoints = points,
                    .cap = style.cap,
                    .join = style.join},
                   color, blendedMode());
}

void RasterCanvas::paintFill(const Color& color, FillRule rule, PaintMode mode)
{
    if (castsShadow()) {
        if (mode == PaintMode::over && paintGlow(color, rule))
            return;
    } else {
        const auto factor = CoverageFactor::of(m_resources.shapes, rule, m_space.pixels());
        if (factor && paintRows(*factor, color, mode))
            return;
    }
    paintGenerally({m_resources.shapes, rule, 0}, color, mode);
}

// For the shadow of a shape whose own inside is the only thing that is clipped away.
bool RasterCanvas::paintGlow(const Color& color, FillRule rule)
{
    const std::optional<PixelShadow> shadow = pixelShadow();
    const auto filled = CoverageFactor::of(m_resources.shapes, rule, m_space.pixels());
    if (m_ways == RasterWays::generalOnly || m_resources.clips.size() != 1 || !shadow || shadow->offsetX != 0 ||
        shadow->offsetY != 0 || !filled || !filled->outer || filled->inner || filled->isNothing())
        return false;
    const auto clip = factorOf(m_resources.clips.front());
    if (!clip || *clip != CoverageFactor::outside(*filled->outer))
        return false;
    const PaintMode mode = m_transparent ? PaintMode::write : PaintMode::over;
    for (const PixelRect& area : m_resources.area.rects())
        m_resources.glows.paint(m_resources.coverage, area, *filled->outer, shadow->blurRadius, {shadow->color, color},
                                mode);
    m_transparent = false;
    return true;
}

bool RasterCanvas::paintRows(const CoverageFactor& factor, const Color& color, PaintMode mode)
{
    if (m_ways == RasterWays::generalOnly || m_resources.clips.size() >= CoveragePainter::kMaxFactors)
        return false;
    if (factor.isNothing())
        return true;
    std::array<CoverageFactor, CoveragePainter::kMaxFactors> factors;
    std::size_t count = 0;
    factors[count++] = factor;
    for (const RasterClip& clip : m_resources.clips) {
        const auto clipFactor = factorOf(clip);
        if (!clipFactor)
            return false;
        factors[count++] = *clipFactor;
    }
    const PaintMode takenMode = takeMode(mode);
    for (const PixelRect& area : m_resources.area.rects())
        m_resources.coverage.paint(area, std::span(factors).first(count), color, takenMode);
    return true;
}

void RasterCanvas::paintGenerally(const MaskPath& path, const Color& color, PaintMode mode)
{
    m_resources.maskClips.clear();
    for (const RasterClip& clip : m_resources.clips)
        m_resources.maskClips.push_back({shapesOf(clip), clip.rule, 0});
    const GeneralPaint paint{path, m_space.pixels(), m_resources.maskClips, pixelShadow(), color, mode};
    for (const PixelRect& area : m_resources.area.rects())
        m_resources.general.paint(m_resources.coverage, area, paint);
    m_transparent = false;
}

PaintMode RasterCanvas::blendedMode() const
{
    return m_state.blendMode == BlendMode::clear ? PaintMode::erase : PaintMode::over;
}

PaintMode RasterCanvas::takeMode(PaintMode mode)
{
    const bool first = m_transparent;
    m_transparent = false;
    return first && mode == PaintMode::over ? PaintMode::write : mode;
}

std::span<const DeviceShape> RasterCanvas::shapesOf(const RasterClip& clip) const
{
    return std::span(m_resources.clipShapes).subspan(clip.firstShape, clip.shapes);
}

std::optional<CoverageFactor> RasterCanvas::factorOf(const RasterClip& clip) const
{
    return CoverageFactor::of(shapesOf(clip), clip.rule, m_space.pixels());
}

std::optional<PixelShadow> RasterCanvas::pixelShadow() const
{
    if (!castsShadow())
        return std::nullopt;
    const Shadow& shadow = *m_state.shadow;
    return PixelShadow{m_space.length(shadow.blurRadius, GlowKernel::kMaxBlurRadius),
                       wholeOffset(shadow.offset.width, m_space.scale()),
                       -wholeOffset(shadow.offset.height, m_space.scale()), shadow.color};
}

} // namespace haloric
