// Draws into a Core Graphics context. Coordinates are those of the context, which applies the backing scale itself.
#pragma once

#include "drawing/Canvas.h"

#import <CoreGraphics/CoreGraphics.h>

namespace haloric {

class MacCanvas final : public Canvas {
public:
    // The context stays its owner's and outlives the canvas. `operation` is the one in force there.
    MacCanvas(CGContextRef context, CompositingOperation operation) : m_context(context), m_operation(operation) {}

    void save() override;
    void restore() override;
    void clip(const Path& path, FillRule rule) override;
    void setShadow(const Shadow& shadow) override;
    void setBlendMode(BlendMode mode) override;
    CompositingOperation compositingOperation() const override { return m_operation; }
    void fill(const Path& path, const Color& color, FillRule rule) override;
    void fillRect(const Rect& rect, const Color& color, CompositingOperation operation) override;
    void stroke(const Path& path, const Color& color, double lineWidth) override;
    void strokeLines(std::span<const Polyline> lines, const Color& color, const LineStyle& style) override;

private:
    void addPath(const Path& path);

    CGContextRef m_context;
    CompositingOperation m_operation;
};

} // namespace haloric
