// A canvas that draws into memory.
//
// The buffer shows a part of a view, so that a large view with little content can be kept as a few narrow strips. The
// pixels of a part are those of the whole view drawn at once. What the program's views draw is drawn in fast ways,
// which tests compare with the general one:
//   - a shadow outside its own rounded rectangle: copied from glow patches (GlowTiles);
//   - plain and rounded rectangles, their strokes, and a rectangle with a rounded hole, painted or erased: exact
//     coverage, row by row (CoveragePainter).
// Everything else is drawn by masks (GeneralPainter). Colours are blended in sRGB, eight bits per component. NaN draws
// nothing, and too large numbers are limited. Main thread.
#pragma once

#include "drawing/Canvas.h"
#include "drawing/DeviceSpace.h"
#include "drawing/raster/PixelBuffer.h"
#include "drawing/raster/RasterResources.h"

namespace haloric {

// The part of a view that a buffer shows.
struct RasterView {
    double scale = 1; // pixels per point
    Size size;        // of the whole view, in points
    int originX = 0;  // the view's pixel at the buffer's first one, counted from the view's upper left
    int originY = 0;
    Point offset = {}; // as for DeviceSpace
};

// The content of the buffer before drawing, where the canvas may draw.
enum class RasterContents {
    kept,        // is drawn over
    transparent, // is known to be transparent, and need not be read
    cleared,     // is made transparent first
};

enum class RasterWays { fast, generalOnly };

class RasterCanvas final : public Canvas {
public:
    // The pixels and the resources outlive the canvas. Draws anywhere in the buffer, or only within `damage`:
    // rectangles of the view's pixels, which may overlap and exceed the buffer.
    RasterCanvas(RasterResources& resources, const PixelBuffer& buffer, const RasterView& view, RasterContents contents,
                 RasterWays ways = RasterWays::fast);
    RasterCanvas(RasterResources& resources, const PixelBuffer& buffer, const RasterView& view, RasterContents contents,
                 std::span<const PixelRect> damage, RasterWays ways = RasterWays::fast);

    void save() override;
    void restore() override; // does nothing without a save
    void clip(const Path& path, FillRule rule) override;
    void setShadow(const Shadow& shadow) override;
    void setBlendMode(BlendMode mode) override;
    CompositingOperation compositingOperation() const override { return CompositingOperation::sourceOver; }
    void fill(const Path& path, const Color& color, FillRule rule) override;
    void fillRect(const Rect& rect, const Color& color, CompositingOperation operation) override;
    void stroke(const Path& path, const Color& color, double lineWidth) override;
    void strokeLines(std::span<const Polyline> lines, const Color& color, const LineStyle& style) override;

private:
    void paintFill(const Color& color, FillRule rule, PaintMode mode);
    bool paintGlow(const Color& color, FillRule rule);
    bool paintRows(const CoverageFactor& factor, const Color& color, PaintMode mode);
    void paintGenerally(const MaskPath& path, const Color& color, PaintMode mode);
    PaintMode blendedMode() const;
    PaintMode takeMode(PaintMode mode);
    std::optional<CoverageFactor> factorOf(const RasterClip& clip) const;
    std::span<const DeviceShape> shapesOf(const RasterClip& clip) const;
    std::optional<PixelShadow> pixelShadow() const;
    bool castsShadow() const { return m_state.shadow && m_state.blendMode != BlendMode::clear; }

    RasterResources& m_resources;
    DeviceSpace m_space;
    RasterWays m_ways;
    bool m_transparent; // the area is still completely transparent
    RasterState m_state;
};

} // namespace haloric
