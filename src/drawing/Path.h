// A path as the list of its shapes. Canvases convert shapes to curves themselves, so that a canvas can draw rectangles
// and rounded rectangles in a faster way.
#pragma once

#include "foundation/Geometry.h"

#include <span>
#include <variant>
#include <vector>

namespace haloric {

struct RoundedRect {
    Rect rect;
    double radius = 0; // both radii of every corner; canvases limit it to half the width and height
    friend bool operator==(const RoundedRect&, const RoundedRect&) = default;
};

enum class FillRule { nonZero, evenOdd };

class Path {
public:
    using Shape = std::variant<Rect, RoundedRect>;

    static Path rect(const Rect& rect) { return Path().add(rect); }
    static Path roundedRect(const Rect& rect, double radius) { return Path().add(RoundedRect{rect, radius}); }

    Path& add(Shape shape)
    {
        m_shapes.push_back(shape);
        return *this;
    }

    std::span<const Shape> shapes() const { return m_shapes; }

    friend bool operator==(const Path&, const Path&) = default;

private:
    std::vector<Shape> m_shapes;
};

} // namespace haloric
