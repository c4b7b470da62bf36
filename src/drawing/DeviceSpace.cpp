#include "drawing/DeviceSpace.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace haloric {

namespace {

constexpr double kMaxPixels = 1 << 20;

int toUnits(double pixels)
{
    return static_cast<int>(std::lround(std::clamp(pixels, -kMaxPixels, kMaxPixels) * DeviceShape::kUnit));
}

int wholePixels(double pixels)
{
    // Rounding errors must not add a pixel to a whole number.
    return pixels > 0 ? static_cast<int>(std::ceil(std::min(pixels, kMaxPixels) - 1.0 / DeviceShape::kUnit)) : 0;
}

RoundedRect asRoundedRect(const Path::Shape& shape)
{
    if (const auto* rect = std::get_if<Rect>(&shape))
        return {*rect, 0};
    return std::get<RoundedRect>(shape);
}

bool isUsable(const Rect& rect)
{
    return !std::isnan(rect.minX()) && !std::isnan(rect.minY()) && !std::isnan(rect.maxX()) &&
           !std::isnan(rect.maxY()) && rect.width > 0 && rect.height > 0;
}

// At most half the width and height, as on every canvas; negative values count as zero.
double limitedRadius(const RoundedRect& shape)
{
    const double limit = std::min(shape.rect.width, shape.rect.height) / 2;
    return shape.radius > 0 ? std::min(shape.radius, limit) : 0;
}

} // namespace

DeviceSpace::DeviceSpace(double scale, Size viewSize, Point offset)
    : m_scale(scale > 0 && std::isfinite(scale) ? scale : 1),
      m_viewSize(viewSize),
      m_offset(offset),
      m_pixels{0, 0, wholePixels(viewSize.width * m_scale), wholePixels(viewSize.height * m_scale)}
{
}

DeviceShape DeviceSpace::map(const Rect& rect, double radius) const
{
    if (!isUsable(rect))
        return {};
    DeviceShape shape{toUnits(toPixelX(rect.minX())), toUnits(toPixelY(rect.maxY())), toUnits(toPixelX(rect.maxX())),
                      toUnits(toPixelY(rect.minY())), 0};
    shape.radius = std::min(toUnits(radius * m_scale), std::min(shape.width(), shape.height()) / 2);
    return shape;
}

DeviceShape DeviceSpace::shape(const Path::Shape& shape) const
{
    const RoundedRect rounded = asRoundedRect(shape);
    DeviceShape mapped = map(rounded.rect, limitedRadius(rounded));
    if (mapped.empty() || !std::holds_alternative<Rect>(shape))
        return mapped;
    if (rounded.rect.minX() <= 0)
        mapped.x0 = std::min(mapped.x0, 0);
    if (rounded.rect.maxY() >= m_viewSize.height)
        mapped.y0 = std::min(mapped.y0, 0);
    if (rounded.rect.maxX() >= m_viewSize.width)
        mapped.x1 = std::max(mapped.x1, m_pixels.maxX() * DeviceShape::kUnit);
    if (rounded.rect.minY() <= 0)
        mapped.y1 = std::max(mapped.y1, m_pixels.maxY() * DeviceShape::kUnit);
    return mapped;
}

StrokeOutline DeviceSpace::stroke(const Path::Shape& shape, double lineWidth) const
{
    const RoundedRect rounded = asRoundedRect(shape);
    if (!isUsable(rounded.rect) || !(lineWidth > 0) || !std::isfinite(lineWidth))
        return {};
    const double half = lineWidth / 2;
    const double radius = limitedRadius(rounded);
    return {map(rounded.rect.insetBy(-half), radius > 0 ? radius + half : 0),
            map(rounded.rect.insetBy(half), std::max(radius - half, 0.0))};
}

void DeviceSpace::addLine(const Polyline& line, std::vector<DevicePoint>& points) const
{
    const auto isFinite = [](const Point& point) { return std::isfinite(point.x) && std::isfinite(point.y); };
    if (line.points.size() < 2 || !std::all_of(line.points.begin(), line.points.end(), isFinite))
        return;
    bool begins = true;
    for (const Point& point : line.points)
        points.push_back({toUnits(toPixelX(point.x)), toUnits(toPixelY(point.y)), std::exchange(begins, false)});
}

double DeviceSpace::length(double points, double limit) const
{
    return points > 0 ? std::min(points * m_scale, limit) : 0;
}

} // namespace haloric
