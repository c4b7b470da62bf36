#include "menubar/Swatch.h"

#include "drawing/Canvas.h"

namespace haloric {

namespace {

constexpr Size kSize{14, 14};
constexpr double kInset = 1;
constexpr double kLineWidth = 1; // the default of macOS

} // namespace

DrawnImage swatch(const RGBA& color)
{
    return {.size = kSize, .draw = [color](Canvas& canvas, const SystemColors& colors) {
                const Rect bounds = Rect{0, 0, kSize.width, kSize.height}.insetBy(kInset);
                const Path disc = Path::roundedRect(bounds, bounds.width / 2);
                canvas.fill(disc, colorFrom(color), FillRule::nonZero);
                canvas.stroke(disc, colors.separator, kLineWidth);
            }};
}

} // namespace haloric
