// The interface that views draw on: a small subset of a two-dimensional graphics context.
//
// Coordinates are points in the view's space, origin at the bottom left, y upward. Clip, shadow and blend mode are
// state that save() and restore() keep; colours are passed with each call. Main thread.
#pragma once

#include "drawing/LineStyle.h"
#include "drawing/Path.h"
#include "foundation/Color.h"
#include "foundation/Geometry.h"

#include <span>

namespace haloric {

// A blurred copy of what is filled, drawn beneath it. `blurRadius` is in points: the blur is a Gaussian of standard
// deviation blurRadius / 2, cut at ± blurRadius.
struct Shadow {
    double blurRadius = 0;
    Size offset;
    Color color;
    friend bool operator==(const Shadow&, const Shadow&) = default;
};

enum class BlendMode { normal, clear };

enum class CompositingOperation { sourceOver, copy };

class Canvas {
public:
    virtual ~Canvas() = default;

    virtual void save() = 0;
    virtual void restore() = 0; // pairs with save()

    // Limits later drawing further, to the inside of `path`.
    virtual void clip(const Path& path, FillRule rule) = 0;

    // Applies to every later fill and stroke, until the state is restored.
    virtual void setShadow(const Shadow& shadow) = 0;

    virtual void setBlendMode(BlendMode mode) = 0;

    // The operation in force for fillRect.
    virtual CompositingOperation compositingOperation() const = 0;

    virtual void fill(const Path& path, const Color& color, FillRule rule) = 0;
    virtual void fillRect(const Rect& rect, const Color& color, CompositingOperation operation) = 0;

    // `lineWidth` in points, centred on the path.
    virtual void stroke(const Path& path, const Color& color, double lineWidth) = 0;

    // All lines as one path: where they cross, the colour is applied once. Lines of fewer than two points are skipped.
    virtual void strokeLines(std::span<const Polyline> lines, const Color& color, const LineStyle& style) = 0;
};

} // namespace haloric
