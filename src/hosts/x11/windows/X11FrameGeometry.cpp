#include "hosts/x11/windows/X11FrameGeometry.h"

#include "hosts/x11/server/X11Property.h"

#include <algorithm>

namespace haloric {

namespace {

constexpr std::uint32_t kLargestExtent = 4096; // larger values make the property invalid

PixelRect grownBy(const PixelRect& rect, const X11Extents& extents, int sign)
{
    return {rect.x - sign * extents.left, rect.y - sign * extents.top,
            rect.width + sign * (extents.left + extents.right), rect.height + sign * (extents.top + extents.bottom)};
}

} // namespace

std::optional<X11Extents> X11Extents::from(const X11Property& property)
{
    constexpr std::size_t kSides = 4;
    const auto values = property.cardinals();
    if (values.size() < kSides || std::any_of(values.begin(), values.begin() + kSides,
                                              [](std::uint32_t value) { return value > kLargestExtent; }))
        return std::nullopt;
    const auto side = [&](std::size_t index) { return static_cast<int>(values[index]); };
    return X11Extents{side(0), side(1), side(2), side(3)};
}

PixelRect X11FrameGeometry::outerRect(int x, int y, int width, int height, int borderWidth)
{
    return {x, y, width + 2 * borderWidth, height + 2 * borderWidth};
}

void X11FrameGeometry::frameConfigured(const PixelRect& outer)
{
    client.width = std::max(0, client.width + outer.width - frame.width);
    client.height = std::max(0, client.height + outer.height - frame.height);
    frame = outer;
}

PixelRect X11FrameGeometry::visibleFrame() const
{
    PixelRect visible{frame.x + client.x, frame.y + client.y, client.width, client.height};
    if (decoration)
        visible = grownBy(visible, *decoration, 1);
    if (shadow) {
        const PixelRect withoutShadow = grownBy(visible, *shadow, -1);
        if (withoutShadow.width > 0 && withoutShadow.height > 0)
            visible = withoutShadow;
    }
    return visible;
}

PixelRect X11FrameGeometry::rolledUpFrame() const
{
    PixelRect visible = visibleFrame();
    if (decoration && decoration->top > 0)
        visible.height = decoration->top + decoration->bottom;
    return visible;
}

} // namespace haloric
