#include "overlay/DimView.h"

#include "drawing/Canvas.h"
#include "overlay/DimColor.h"
#include "overlay/FrameStrips.h"

#include <algorithm>

namespace haloric {

void DimView::draw(Canvas& canvas, const Rect& bounds)
{
    if (!settings.dimEnabled)
        return;
    Path path = Path::rect(bounds);
    if (hasHole(bounds))
        path.add(RoundedRect{*holeRect, std::max(settings.cornerRadius, 0.0)});
    canvas.fill(path, dimColor(settings), FillRule::evenOdd); // what is covered twice stays clear
}

std::vector<Rect> DimView::paintedArea(const Rect& bounds) const
{
    if (!settings.dimEnabled)
        return {};
    if (!hasHole(bounds))
        return {bounds};
    const double longerHalf = std::max(holeRect->width, holeRect->height) / 2;
    const double corner = std::clamp(settings.cornerRadius, 0.0, longerHalf);
    return stripsAround(bounds, holeRect->insetBy(corner + kAntialiasing));
}

std::array<Rect, 2> DimView::holeDamage(const Rect& oldHole, const Rect& newHole)
{
    return {oldHole.insetBy(-kAntialiasing), newHole.insetBy(-kAntialiasing)};
}

bool DimView::hasHole(const Rect& bounds) const { return holeRect && intersects(*holeRect, bounds); }

} // namespace haloric
