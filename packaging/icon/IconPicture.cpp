#include "icon/IconPicture.h"

#include "drawing/raster/RasterCanvas.h"
#include "overlay/HighlightView.h"

#include <algorithm>

namespace haloric {
namespace {

// All in points of a picture that is 1024 wide.
constexpr double kSide = 1024;
constexpr RoundedRect kTile{{100, 100, 824, 824}, 186};
constexpr RoundedRect kWindowBehind{{430, 450, 380, 300}, 36};
constexpr RoundedRect kWindow{{232, 262, 470, 380}, 44};
constexpr double kTitleBarHeight = 92;
constexpr double kDotRadius = 17;
constexpr double kDotDistance = 58;
constexpr double kGlowRadius = 150;
constexpr double kBorderWidth = 26;
constexpr int kSmallestWithDots = 64; // pixels

constexpr Color kTileColor{0.09, 0.11, 0.18, 1};
constexpr Color kBehindColor{0.30, 0.34, 0.43, 1};
constexpr Color kWindowColor{0.96, 0.97, 0.99, 1};
constexpr Color kTitleBarColor{0.82, 0.85, 0.90, 1};
constexpr Color kDotColor{0.58, 0.62, 0.69, 1};

Path pathOf(const RoundedRect& shape) { return Path().add(shape); }

void drawWindow(Canvas& canvas, bool hasDots)
{
    const Rect& frame = kWindow.rect;
    const double barBottom = frame.maxY() - kTitleBarHeight;
    canvas.fill(pathOf(kWindow), kWindowColor, FillRule::nonZero);
    canvas.save();
    canvas.clip(pathOf(kWindow), FillRule::nonZero);
    canvas.fillRect({frame.x, barBottom, frame.width, kTitleBarHeight}, kTitleBarColor,
                    CompositingOperation::sourceOver);
    canvas.restore();
    for (int i = 1; hasDots && i <= 3; ++i) {
        const Point middle{frame.x + kBorderWidth + (i - 0.5) * kDotDistance,
                           barBottom + (kTitleBarHeight - kBorderWidth) / 2};
        const Rect dot{middle.x - kDotRadius, middle.y - kDotRadius, 2 * kDotRadius, 2 * kDotRadius};
        canvas.fill(Path::roundedRect(dot, kDotRadius), kDotColor, FillRule::nonZero);
    }
}

void drawHighlight(Canvas& canvas, double borderWidth)
{
    HighlightView highlight;
    highlight.windowRect = kWindow.rect;
    highlight.settings.cornerRadius = kWindow.radius;
    highlight.settings.borderWidth = borderWidth;
    highlight.settings.glowRadius = kGlowRadius;
    highlight.settings.glowOpacity = 1;
    canvas.save();
    canvas.clip(pathOf(kTile), FillRule::nonZero);
    highlight.draw(canvas, {0, 0, kSide, kSide});
    canvas.restore();
}

} // namespace

Picture IconPicture::draw(int pixels)
{
    Picture picture(pixels, pixels);
    RasterResources resources;
    const double scale = pixels / kSide;
    RasterCanvas canvas(resources, picture.buffer(), {.scale = scale, .size = {kSide, kSide}},
                        RasterContents::transparent);
    canvas.fill(pathOf(kTile), kTileColor, FillRule::nonZero);
    canvas.fill(pathOf(kWindowBehind), kBehindColor, FillRule::nonZero);
    drawWindow(canvas, pixels >= kSmallestWithDots);
    drawHighlight(canvas, std::max(kBorderWidth, 1.5 / scale)); // else it would vanish in a small picture
    return picture;
}

} // namespace haloric
