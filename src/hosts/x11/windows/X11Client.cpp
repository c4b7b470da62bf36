#include "hosts/x11/windows/X11Client.h"

#include "hosts/x11/server/X11Property.h"

#include <algorithm>

namespace haloric {

namespace {

PixelRect grownBy(const PixelRect& rect, const X11Extents& extents, int sign)
{
    return {rect.x - sign * extents.left, rect.y - sign * extents.top,
            rect.width + sign * (extents.left + extents.right), rect.height + sign * (extents.top + extents.bottom)};
}

} // namespace

std::optional<X11Extents> X11Extents::from(const X11Property& property, int screenWidth, int screenHeight)
{
    constexpr std::size_t kSides = 4;
    const auto values = property.cardinals();
    if (values.size() < kSides)
        return std::nullopt;
    const auto side = [&](std::size_t index) { return std::int64_t{values[index]}; };
    if (side(0) + side(1) >= screenWidth || side(2) + side(3) >= screenHeight)
        return std::nullopt;
    const auto pixels = [&](std::size_t index) { return static_cast<int>(values[index]); };
    return X11Extents{pixels(0), pixels(1), pixels(2), pixels(3)};
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

X11Extents X11FrameGeometry::aroundClient() const
{
    return {std::max(0, client.x), std::max(0, frame.width - client.maxX()), std::max(0, client.y),
            std::max(0, frame.height - client.maxY())};
}

PixelRect X11FrameGeometry::rolledUpFrame() const
{
    PixelRect visible = visibleFrame();
    if (decoration && decoration->top > 0)
        visible.height = decoration->top + decoration->bottom;
    return visible;
}

X11Decoration X11Client::decoration() const
{
    if (geometry.shadow)
        return X11Decoration::client;
    if (!geometry.decoration)
        return X11Decoration::unknown;
    // A side as high as the one at the bottom is a border.
    const X11Extents& sides = *geometry.decoration;
    return sides.top > sides.bottom ? X11Decoration::windowManager : X11Decoration::none;
}

void X11ClientNotice::appendChanges(std::vector<X11ClientNotice>& notices, const X11Client& before,
                                    const X11Client& now)
{
    const auto note = [&](bool happened, X11ClientChange change) {
        if (happened)
            notices.push_back({now.pid, now.window, change});
    };
    const PixelRect old = before.visibleFrame();
    const PixelRect current = now.visibleFrame();
    note(old.x != current.x || old.y != current.y, X11ClientChange::moved);
    note(old.width != current.width || old.height != current.height, X11ClientChange::resized);
    note(before.geometry.decoration != now.geometry.decoration || before.geometry.shadow != now.geometry.shadow,
         X11ClientChange::redecorated);
    note(!before.isMinimised() && now.isMinimised(), X11ClientChange::minimised);
    note(before.isMinimised() && !now.isMinimised(), X11ClientChange::restored);
    note(before.type != now.type || before.frame != now.frame || before.desktop != now.desktop ||
             before.mapped != now.mapped || before.pid != now.pid,
         X11ClientChange::otherwise);
}

} // namespace haloric
