// A canvas with its origin at the top left and y downward, over one with y upward.
//
// Shapes and points are mirrored; a shadow's offset stays in the space of the underlying canvas, as on macOS.
#pragma once

#include "drawing/Canvas.h"

namespace haloric {

class FlippedCanvas final : public Canvas {
public:
    // Draws on `canvas`, which outlives this one. `height`: of the view, in points.
    FlippedCanvas(Canvas& canvas, double height) : m_canvas(canvas), m_height(height) {}

    void save() override { m_canvas.save(); }
    void restore() override { m_canvas.restore(); }
    void clip(const Path& path, FillRule rule) override { m_canvas.clip(flipped(path), rule); }
    void setShadow(const Shadow& shadow) override { m_canvas.setShadow(shadow); }
    void setBlendMode(BlendMode mode) override { m_canvas.setBlendMode(mode); }
    CompositingOperation compositingOperation() const override { return m_canvas.compositingOperation(); }
    void fill(const Path& path, const Color& color, FillRule rule) override;
    void fillRect(const Rect& rect, const Color& color, CompositingOperation operation) override;
    void stroke(const Path& path, const Color& color, double lineWidth) override;
    void strokeLines(std::span<const Polyline> lines, const Color& color, const LineStyle& style) override;

private:
    Path flipped(const Path& path) const;

    Canvas& m_canvas;
    double m_height;
};

} // namespace haloric
