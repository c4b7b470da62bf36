// How much of each pixel in one row a shape covers: exact areas, no sampling.
//
// Most of a row is either uncovered or covered equally; only the pixels at an edge differ. Columns and rows are pixels
// of the shape's space. Pure; cheap enough to make one for every row.
#pragma once

#include "drawing/DeviceShape.h"

namespace haloric {

class RowCoverage {
public:
    RowCoverage(const DeviceShape& shape, int row);

    // 0 before begin() and from end() on; inner() from fullBegin() to fullEnd(); at() in between.
    // begin() <= fullBegin() <= fullEnd() <= end().
    int begin() const { return m_begin; }
    int fullBegin() const { return m_fullBegin; }
    int fullEnd() const { return m_fullEnd; }
    int end() const { return m_end; }
    float inner() const { return m_inner; }

    // Any column.
    float at(int column) const;

    // The rows from uniformBegin to uniformEnd, between the shape's corners, have the same coverage.
    static int uniformBegin(const DeviceShape& shape) { return pixelCeil(shape.y0 + shape.radius); }
    static int uniformEnd(const DeviceShape& shape) { return pixelFloor(shape.y1 - shape.radius); }

private:
    // The part of the row beside a corner, as distances from the centre of its arc, outward.
    struct Band {
        double near = 0;
        double far = 0;
        bool empty() const { return far <= near; }
    };

    double cutByCorner(const Band& rows, double columnNear, double columnFar) const;
    double cutOnSide(double outerDistance) const;

    DeviceShape m_shape;
    double m_radius; // pixels
    Band m_top;
    Band m_bottom;
    float m_inner = 0;
    int m_begin = 0;
    int m_fullBegin = 0;
    int m_fullEnd = 0;
    int m_end = 0;
};

} // namespace haloric
