// A canvas that draws into memory.
//
// The buffer shows a part of a view, so that a large view with little in it can be kept as a few narrow strips.
// Whatever the parts, the pixels are those of the whole view drawn at once. What the program's views draw takes fast
// ways, each held to the general one by tests:
//   - a shadow cast outside its own rounded rectangle: patches of glow, copied (GlowTiles);
//   - rectangles, rounded ones, strokes of them, a rectangle with a rounded hole, painted or erased: exact coverage,
//   row
//     by row (CoveragePainter).
// Anything else goes by masks (GeneralPainter). Colours blend as they stand, in sRGB, eight bits a component.
// Numbers that make no sense draw nothing or are cut to a sensible size. Main thread.
#pragma once

#include "drawing/Canvas.h"
#include "drawing/DeviceSpace.h"
#include "drawing/raster/PixelBuffer.h"
#include "drawing/raster/RasterResources.h"

namespace haloric {

// Which part of a view a buffer shows.
struct RasterView {
    double scale = 1; // pixels a point
    Size size;        // of the whole view, in points
    int originX = 0;  // the view's pixel, from its upper left one, that is the buffer's first
    int originY = 0;
    Point offset = {}; // of the view's corner from that of its first pixel, as for DeviceSpace
};

// What the buffer holds when drawing begins, as far as the canvas may draw.
enum class RasterContents {
    kept,        // drawn over
    transparent, // known to be so; spares reading it
    cleared,     // made transparent first
};

enum class RasterWays { fast, generalOnly };

class RasterCanvas final : public Canvas {
public:
    // The pixels and the resources outlive the canvas. Draws anywhere in the buffer, or only within `damage`: pixels of
    // the view, which may overlap and exceed the buffer.
    RasterCanvas(RasterResources& resources, const PixelBuffer& buffer, const RasterView& view, RasterContents contents,
                 RasterWays ways = RasterWays::fast);
    RasterCanvas(RasterResources& resources, const PixelBuffer& buffer, const RasterView& view, RasterContents contents,
                 std::span<const PixelRect> damage, RasterWays ways = RasterWays::fast);

    void save() override;
    void restore() override; // without a save, nothing
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
    bool m_transparent; // nothing was drawn yet, onto nothing
    RasterState m_state;
};

} // namespace haloric
