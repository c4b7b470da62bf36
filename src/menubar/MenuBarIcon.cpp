#include "menubar/MenuBarIcon.h"

#include "drawing/Canvas.h"

#include <array>

namespace haloric {

namespace {

constexpr Color kBlack{0, 0, 0, 1};
constexpr LineStyle kBracketStyle{1.6, LineCap::round, LineJoin::round};
constexpr Rect kWindow{5.5, 6.5, 7.0, 5.0};
constexpr double kWindowRadius = 1.1;
constexpr double kWindowLineWidth = 1.5;

void drawIcon(Canvas& canvas, const SystemColors&)
{
    // The right brackets reach further than the lower ones, to look balanced.
    const std::array<Polyline, 4> brackets{{
        {{{1.5, 5.5}, {1.5, 2.0}, {5.0, 2.0}}},
        {{{13.0, 2.0}, {16.5, 2.0}, {16.5, 5.5}}},
        {{{1.5, 12.5}, {1.5, 16.0}, {5.0, 16.0}}},
        {{{13.0, 16.0}, {16.5, 16.0}, {16.5, 12.5}}},
    }};
    canvas.strokeLines(brackets, kBlack, kBracketStyle);
    canvas.stroke(Path::roundedRect(kWindow, kWindowRadius), kBlack, kWindowLineWidth);
}

} // namespace

DrawnImage MenuBarIcon::make() { return {.size = {18, 18}, .isTemplate = true, .isFlipped = true, .draw = drawIcon}; }

} // namespace haloric
