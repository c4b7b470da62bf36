// A canvas for screens without transparency: it collects the strokes of rectangles and rounded rectangles, as whole
// pixels of one opaque colour, and drops everything else. The result is the shape of a window that is filled with that
// colour. Main thread.
#pragma once

#include "drawing/Canvas.h"
#include "drawing/DeviceSpace.h"
#include "drawing/PixelRect.h"

#include <optional>
#include <vector>

namespace haloric {

class RingCanvas final : public Canvas {
public:
    // As for DeviceSpace.
    RingCanvas(double scale, Size viewSize, Point offset = {}) : m_space(scale, viewSize, offset) {}

    // The pixels of all strokes, counted from the view's upper left pixel, y downward. Equal rows share a rectangle.
    // Rectangles of different strokes may overlap.
    const std::vector<PixelRect>& rects() const { return m_rects; }

    // The first stroke's colour, made opaque; no value if there is no stroke.
    const std::optional<Color>& color() const { return m_color; }

    void save() override {}
    void restore() override {}
    void clip(const Path&, FillRule) override {}
    void setShadow(const Shadow&) override {}
    void setBlendMode(BlendMode) override {}
    CompositingOperation compositingOperation() const override { return CompositingOperation::sourceOver; }
    void fill(const Path&, const Color&, FillRule) override {}
    void fillRect(const Rect&, const Color&, CompositingOperation) override {}
    void strokeLines(std::span<const Polyline>, const Color&, const LineStyle&) override {}

    // At least one pixel wide. Fully transparent strokes are dropped.
    void stroke(const Path& path, const Color& color, double lineWidth) override;

private:
    void addRing(const DeviceShape& shape, int thickness);
    void addRun(int begin, int end, int top, int bottom);

    DeviceSpace m_space;
    std::vector<PixelRect> m_rects;
    std::optional<Color> m_color;
};

} // namespace haloric
