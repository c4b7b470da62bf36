#include "overlay/HighlightView.h"

#include "drawing/Canvas.h"
#include "overlay/FrameStrips.h"

#include <algorithm>
#include <cmath>

namespace haloric {

namespace {

constexpr double kPulseGrowth = 26.0;   // points that the ring travels outward
constexpr double kPulseLineWidth = 3.0; // points
constexpr double kPulseAlpha = 0.9;     // at the start of the pulse

// Fast at first, slowing down towards the end.
double pulseGrowth(double progress)
{
    const double t = 1 - progress;
    return (1 - t * t) * kPulseGrowth;
}

} // namespace

double HighlightView::glowReach(const Settings& settings) { return std::min(settings.glowRadius, kLargestGlowRadius); }

void HighlightView::draw(Canvas& canvas, const Rect& bounds)
{
    if (isEmpty())
        return;
    if (hasGlow())
        drawGlow(canvas, bounds);
    if (hasTint())
        drawTint(canvas);
    if (hasBorder())
        drawBorder(canvas);
    if (showsPulse(pulseProgress))
        drawPulse(canvas);
}

void HighlightView::drawGlow(Canvas& canvas, const Rect& bounds) const
{
    const double radius = std::max(settings.cornerRadius, 0.0);
    const Path window = Path::roundedRect(windowRect, radius);
    const Color glow = color(settings.glowColor);
    canvas.save();
    // The fill lies in the clipped-out window, so that only its shadow shows.
    canvas.clip(Path::rect(bounds).add(RoundedRect{windowRect, corner()}), FillRule::evenOdd);
    canvas.setShadow({glowReach(settings), Size{0, 0}, glow.withAlpha(settings.glowOpacity)});
    canvas.fill(window, glow, FillRule::nonZero);
    canvas.restore();
}

void HighlightView::drawTint(Canvas& canvas) const
{
    const double height = std::min(windowRect.height, *tintHeight);
    const Rect band{windowRect.minX(), windowRect.maxY() - height, windowRect.width, height};
    canvas.save();
    canvas.clip(Path::roundedRect(windowRect, std::max(settings.cornerRadius, 0.0)), FillRule::nonZero);
    canvas.fillRect(band, color(settings.tintColor).withAlpha(settings.tintOpacity), canvas.compositingOperation());
    canvas.restore();
}

void HighlightView::drawBorder(Canvas& canvas) const
{
    const double half = settings.borderWidth * 0.5;
    const double radius = std::max(settings.cornerRadius - half, 0.0);
    const Rect line = windowRect.insetBy(half);
    const Color border = color(settings.borderColor);
    if (line.width > 0 && line.height > 0) {
        canvas.stroke(Path::roundedRect(line, radius), border, settings.borderWidth);
    } else {
        // Wider than the window: no line is left to stroke, and the border is the whole window.
        canvas.fill(Path::roundedRect(windowRect, radius > 0 ? settings.cornerRadius : 0), border, FillRule::nonZero);
    }
}

void HighlightView::drawPulse(Canvas& canvas) const
{
    const double grow = pulseGrowth(pulseProgress);
    const double radius = std::max(settings.cornerRadius + grow, 0.0);
    const Color ring = color(settings.borderEnabled ? settings.borderColor : settings.glowColor);
    canvas.stroke(Path::roundedRect(windowRect.insetBy(-grow), radius),
                  ring.withAlpha((1 - pulseProgress) * kPulseAlpha), kPulseLineWidth);
}

std::vector<Rect> HighlightView::paintedArea(const Rect& /*bounds*/) const
{
    if (isEmpty() || !(hasGlow() || hasTint() || hasBorder() || settings.pulseEnabled))
        return {};
    double reach = 0; // outward from the window's edges
    double depth = 0; // inward
    if (hasGlow()) {
        reach = glowReach(settings);
        depth = corner();
    }
    if (hasBorder())
        depth = std::max(corner(), settings.borderWidth);
    if (settings.pulseEnabled) {
        reach = std::max(reach, kPulseGrowth + kPulseLineWidth / 2);
        depth = std::max({depth, corner(), kPulseLineWidth / 2});
    }
    const double topDepth = hasTint() ? std::max(depth, *tintHeight) : depth;
    Rect interior = windowRect.insetBy(depth + kAntialiasing);
    interior.height -= topDepth - depth;
    return stripsAround(windowRect.insetBy(-(reach + kAntialiasing)), interior);
}

std::vector<Rect> HighlightView::pulseDamage(double oldProgress, double newProgress) const
{
    if (isEmpty())
        return {};
    if (!showsPulse(oldProgress))
        oldProgress = newProgress;
    if (!showsPulse(newProgress))
        newProgress = oldProgress;
    if (!showsPulse(newProgress))
        return {};
    const auto [innerGrowth, outerGrowth] = std::minmax({pulseGrowth(oldProgress), pulseGrowth(newProgress)});
    constexpr double kSpill = kPulseLineWidth / 2 + kAntialiasing;
    const Rect outer = windowRect.insetBy(-(outerGrowth + kSpill));
    const double bar = outerGrowth - innerGrowth + 2 * kSpill;
    const double square = std::ceil(corner() + outerGrowth + kPulseLineWidth / 2) + 3;
    return {
        {outer.minX(), outer.maxY() - bar, outer.width, bar},
        {outer.minX(), outer.minY(), outer.width, bar},
        {outer.minX(), outer.minY(), bar, outer.height},
        {outer.maxX() - bar, outer.minY(), bar, outer.height},
        {outer.minX(), outer.minY(), square, square},
        {outer.maxX() - square, outer.minY(), square, square},
        {outer.minX(), outer.maxY() - square, square, square},
        {outer.maxX() - square, outer.maxY() - square, square, square},
    };
}

bool HighlightView::isEmpty() const { return !(windowRect.width > 0 && windowRect.height > 0); }

bool HighlightView::hasGlow() const { return settings.glowEnabled && settings.glowRadius > 0; }

bool HighlightView::hasTint() const { return settings.tintEnabled && tintHeight.value_or(0) > 0; }

bool HighlightView::hasBorder() const { return settings.borderEnabled && settings.borderWidth > 0; }

bool HighlightView::showsPulse(double progress) const { return settings.pulseEnabled && progress > 0 && progress < 1; }

Color HighlightView::color(const EffectColor& effect) const { return colorFrom(settings.resolve(effect)); }

// The corner radius, limited to where it has an effect. A canvas may limit each axis separately, hence the longer side.
double HighlightView::corner() const
{
    return std::clamp(settings.cornerRadius, 0.0, std::max(windowRect.width, windowRect.height) / 2);
}

} // namespace haloric
