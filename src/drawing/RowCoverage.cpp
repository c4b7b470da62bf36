#include "drawing/RowCoverage.h"

#include <algorithm>
#include <cmath>

namespace haloric {

namespace {

constexpr double kPixels = 1.0 / DeviceShape::kUnit;

double legOf(double radius, double otherLeg) { return std::sqrt(std::max(0.0, radius * radius - otherLeg * otherLeg)); }

// The area under the arc of a circle around the origin, from 0 to x.
double areaUnderArc(double radius, double x)
{
    return 0.5 * (x * legOf(radius, x) + radius * radius * std::asin(std::min(1.0, x / radius)));
}

} // namespace

RowCoverage::RowCoverage(const DeviceShape& shape, int row) : m_shape(shape), m_radius(shape.radius * kPixels)
{
    const int top = row * DeviceShape::kUnit;
    const int from = std::max(top, shape.y0);
    const int to = std::min(top + DeviceShape::kUnit, shape.y1);
    if (shape.empty() || to <= from)
        return;
    m_inner = static_cast<float>((to - from) * kPixels);

    const int topCentre = shape.y0 + shape.radius;
    const int bottomCentre = shape.y1 - shape.radius;
    m_top = {std::max(0, topCentre - to) * kPixels, (topCentre - from) * kPixels};
    m_bottom = {std::max(0, from - bottomCentre) * kPixels, (to - bottomCentre) * kPixels};

    double widest = m_radius; // the largest and the smallest distance of the outline from the centre of its arc
    double narrowest = m_radius;
    if (!m_top.empty())
        narrowest = std::min(narrowest, legOf(m_radius, m_top.far));
    if (!m_bottom.empty())
        narrowest = std::min(narrowest, legOf(m_radius, m_bottom.far));
    if (to <= topCentre)
        widest = legOf(m_radius, m_top.near);
    else if (from >= bottomCentre)
        widest = legOf(m_radius, m_bottom.near);

    const double left = shape.x0 * kPixels + m_radius;
    const double right = shape.x1 * kPixels - m_radius;
    m_begin = static_cast<int>(std::floor(left - widest));
    m_end = static_cast<int>(std::ceil(right + widest));
    m_fullBegin = static_cast<int>(std::ceil(left - narrowest));
    m_fullEnd = static_cast<int>(std::floor(right + narrowest));
    if (m_fullBegin > m_fullEnd)
        m_fullBegin = m_fullEnd = m_end;
}

// The part of a block of the corner's square that lies outside the arc. Distances are from the centre of the arc.
double RowCoverage::cutByCorner(const Band& rows, double columnNear, double columnFar) const
{
    const double whole = (columnFar - columnNear) * (rows.far - rows.near);
    if (columnFar * columnFar + rows.far * rows.far <= m_radius * m_radius)
        return 0;
    if (columnNear * columnNear + rows.near * rows.near >= m_radius * m_radius)
        return whole;
    const double above = std::clamp(legOf(m_radius, rows.far), columnNear, columnFar);
    const double below = std::clamp(legOf(m_radius, rows.near), columnNear, columnFar);
    const double inside = (above - columnNear) * (rows.far - rows.near) + areaUnderArc(m_radius, below) -
                          areaUnderArc(m_radius, above) - rows.near * (below - above);
    return whole - inside;
}

// The area that the two corners of one side cut from a pixel whose outer edge is `outerDistance` inward of that side.
double RowCoverage::cutOnSide(double outerDistance) const
{
    const double far = m_radius - std::max(outerDistance, 0.0);
    const double near = std::max(m_radius - (outerDistance + 1), 0.0);
    if (far <= near)
        return 0;
    double cut = 0;
    if (!m_top.empty())
        cut += cutByCorner(m_top, near, far);
    if (!m_bottom.empty())
        cut += cutByCorner(m_bottom, near, far);
    return cut;
}

float RowCoverage::at(int column) const
{
    const int left = column * DeviceShape::kUnit;
    const int from = std::max(left, m_shape.x0);
    const int to = std::min(left + DeviceShape::kUnit, m_shape.x1);
    if (to <= from || m_inner == 0)
        return 0;
    double area = (to - from) * kPixels * static_cast<double>(m_inner);
    if (m_shape.radius > 0) {
        area -= cutOnSide((left - m_shape.x0) * kPixels);
        area -= cutOnSide((m_shape.x1 - left - DeviceShape::kUnit) * kPixels);
    }
    return static_cast<float>(std::clamp(area, 0.0, 1.0));
}

} // namespace haloric
