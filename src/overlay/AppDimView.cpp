#include "overlay/AppDimView.h"

#include "drawing/Canvas.h"
#include "overlay/DimColor.h"
#include "overlay/FrameStrips.h"

#include <algorithm>

namespace haloric {

void AppDimView::draw(Canvas& canvas, const Rect& bounds)
{
    if (!isShown())
        return;
    const Color color = dimColor(settings);
    for (const Window& window : windows) {
        if (!intersects(window.rect, bounds))
            continue;
        const double shorterHalf = std::min(window.rect.width, window.rect.height) * 0.5;
        const double radius = std::clamp(settings.cornerRadius, 0.0, shorterHalf);
        canvas.setBlendMode(window.dim ? BlendMode::normal : BlendMode::clear);
        canvas.fill(Path::roundedRect(window.rect, radius), color, FillRule::nonZero);
    }
    canvas.setBlendMode(BlendMode::normal);
}

std::vector<Rect> AppDimView::paintedArea(const Rect& bounds) const
{
    if (!isShown())
        return {};
    std::vector<Rect> area;
    for (const Window& window : windows) {
        if (window.dim && intersects(window.rect, bounds))
            area.push_back(window.rect.insetBy(-kAntialiasing));
    }
    return area;
}

bool AppDimView::isShown() const { return settings.dimEnabled && settings.dimScope == DimScope::selectedApps; }

} // namespace haloric
