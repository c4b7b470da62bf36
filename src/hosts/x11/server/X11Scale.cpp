#include "hosts/x11/server/X11Scale.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>

namespace haloric {

namespace {

constexpr double kUnscaledDotsPerInch = 96;
constexpr double kStepsPerUnit = 4; // quarters
constexpr double kSmallest = 1;
constexpr double kLargest = 4;
constexpr std::string_view kBlanks = " \t";

std::string_view withoutLeadingBlanks(std::string_view text)
{
    return text.substr(std::min(text.find_first_not_of(kBlanks), text.size()));
}

} // namespace

PixelRect withinProtocol(const PixelRect& rect)
{
    using Limits = std::numeric_limits<std::int16_t>;
    return {std::clamp<int>(rect.x, Limits::min(), Limits::max()),
            std::clamp<int>(rect.y, Limits::min(), Limits::max()), std::clamp<int>(rect.width, 1, Limits::max()),
            std::clamp<int>(rect.height, 1, Limits::max())};
}

Rect X11Space::toGlobal(const PixelRect& pixels) const
{
    return {(pixels.x - primary.x) / pixelsPerPoint, (pixels.y - primary.y) / pixelsPerPoint,
            pixels.width / pixelsPerPoint, pixels.height / pixelsPerPoint};
}

PixelRect X11Space::fromGlobal(const Rect& points) const
{
    return {rounded(points.x) + primary.x, rounded(points.y) + primary.y, rounded(points.width),
            rounded(points.height)};
}

Point X11Space::offsetFromScreenSpace(const Rect& points) const
{
    const Rect global = flippedVertically(points, primaryHeight());
    return {offset(global.x), offset(global.y)};
}

double X11Space::exact(double points) const
{
    constexpr double kFarthest = 1e8; // far outside of any root window, and safe to add to
    return std::clamp(points * pixelsPerPoint, -kFarthest, kFarthest);
}

int X11Space::rounded(double points) const
{
    constexpr double kNoise = 1e-6; // a half stays one through the noise of earlier sums
    return static_cast<int>(std::floor(exact(points) + 0.5 + kNoise));
}

double X11Space::offset(double points) const
{
    constexpr double kSteps = 256; // finer ones would be noise to the eye, and in the sums
    return std::round((exact(points) - rounded(points)) * kSteps) / kSteps;
}

void X11Scale::set(const X11Space& space)
{
    if (space == m_space)
        return;
    m_space = space;
    m_changes.publish();
}

double X11Scale::fromDotsPerInch(double dotsPerInch)
{
    if (!std::isfinite(dotsPerInch))
        return kSmallest;
    const double steps = std::floor(dotsPerInch / kUnscaledDotsPerInch * kStepsPerUnit);
    return std::clamp(steps / kStepsPerUnit, kSmallest, kLargest);
}

double X11Scale::fromResources(std::string_view resources)
{
    constexpr std::string_view kKey = "Xft.dpi:";
    while (!resources.empty()) {
        const auto end = std::min(resources.find('\n'), resources.size());
        const auto line = withoutLeadingBlanks(resources.substr(0, end));
        resources.remove_prefix(std::min(end + 1, resources.size()));
        if (!line.starts_with(kKey))
            continue;
        const auto value = withoutLeadingBlanks(line.substr(kKey.size()));
        double dotsPerInch = 0;
        const auto result = std::from_chars(value.data(), value.data() + value.size(), dotsPerInch);
        return result.ec == std::errc() ? fromDotsPerInch(dotsPerInch) : kSmallest;
    }
    return kSmallest;
}

} // namespace haloric
