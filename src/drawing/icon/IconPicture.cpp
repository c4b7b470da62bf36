#include "drawing/icon/IconPicture.h"

#include "drawing/FlippedCanvas.h"
#include "drawing/raster/RasterCanvas.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace haloric {

namespace {

// Lengths are parts of the picture's side, and become pixels in IconDrawing.
constexpr int kSmallestDetailed = 48; // pixels: title bar and brackets
constexpr int kSmallestWithDots = 96; // pixels: the dots of the title bar
constexpr double kMargin = 100.0 / 1024;
constexpr double kSmallMargin = 1.0 / 16; // leaves more of a small picture to the tile
constexpr double kTileRadius = 0.225;     // of the tile's side
constexpr Size kWindowSize{0.43, 0.33};
constexpr Size kSmallWindowSize{0.46, 0.36};
constexpr double kWindowRadius = 0.045;
constexpr double kTitleBarHeight = 0.075;
constexpr double kBorderWidth = 0.026;
constexpr double kSmallBorderWidth = 1.0 / 16;
constexpr double kGlowRadius = 0.24;
constexpr double kNearGlowRadius = 0.09;
constexpr double kLeastGlowRadius = 4;     // pixels
constexpr double kBracketDistance = 0.105; // from the window
constexpr double kBracketLength = 0.085;
constexpr double kBracketWidth = 0.020;

constexpr Color kTileTop{0.17, 0.20, 0.31, 1};
constexpr Color kTileBottom{0.05, 0.06, 0.11, 1};
constexpr Color kTileEdge{1, 1, 1, 0.10};
constexpr Color kGlow{0.04, 0.52, 1, 1};
constexpr Color kBorder{0.30, 0.66, 1, 1};
constexpr Color kWindow{0.95, 0.97, 1, 1};
constexpr Color kTitleBar{0.77, 0.84, 0.94, 1};
constexpr Color kDot{0.45, 0.53, 0.66, 1};
constexpr Color kBracket{0.62, 0.70, 0.86, 1};

constexpr double mixed(double from, double to, double part) { return from + (to - from) * part; }

class IconDrawing {
public:
    IconDrawing(Canvas& canvas, int pixels)
        : m_canvas(canvas),
          m_side(pixels),
          m_isDetailed(pixels >= kSmallestDetailed)
    {
        const double margin = whole(m_isDetailed ? kMargin : kSmallMargin);
        m_tile = Rect{0, 0, m_side, m_side}.insetBy(margin);
        m_tileShape = Path::roundedRect(m_tile, m_tile.width * kTileRadius);
        const Size window = m_isDetailed ? kWindowSize : kSmallWindowSize;
        const double width = wholeLike(window.width);
        const double height = wholeLike(window.height);
        m_window = {(m_side - width) / 2, (m_side - height) / 2, width, height};
        m_radius = std::max(1.0, m_side * kWindowRadius);
        m_windowShape = Path::roundedRect(m_window, m_radius);
        m_borderWidth = m_isDetailed ? m_side * kBorderWidth : whole(kSmallBorderWidth);
    }

    void draw()
    {
        m_canvas.save();
        m_canvas.clip(m_tileShape, FillRule::nonZero);
        drawTile();
        drawGlow(m_side * kGlowRadius);
        drawGlow(std::max(kLeastGlowRadius, m_side * kNearGlowRadius));
        m_canvas.restore();
        drawWindow();
        if (m_isDetailed) {
            drawTileEdge();
            drawBrackets();
        }
    }

private:
    double whole(double part) const { return std::max(1.0, std::round(m_side * part)); }

    // Even if the side is even, odd if it is odd, so that a centred shape has its edges on whole pixels.
    double wholeLike(double part) const
    {
        const int side = static_cast<int>(m_side);
        const int length = static_cast<int>(std::round(m_side * part));
        return std::max(1, length + (side - length) % 2);
    }

    // Row by row, because the canvas has no gradients.
    void drawTile()
    {
        for (double y = m_tile.minY(); y < m_tile.maxY(); ++y) {
            const double part = (y - m_tile.minY()) / m_tile.height;
            const Color color{mixed(kTileTop.red, kTileBottom.red, part),
                              mixed(kTileTop.green, kTileBottom.green, part),
                              mixed(kTileTop.blue, kTileBottom.blue, part), 1};
            m_canvas.fillRect({m_tile.x, y, m_tile.width, 1}, color, CompositingOperation::sourceOver);
        }
    }

    // Makes the tile visible on a dark background.
    void drawTileEdge()
    {
        const double width = std::max(1.0, m_side / 256);
        m_canvas.stroke(Path::roundedRect(m_tile.insetBy(width / 2), m_tile.width * kTileRadius - width / 2), kTileEdge,
                        width);
    }

    void drawGlow(double radius)
    {
        m_canvas.save();
        m_canvas.setShadow({.blurRadius = radius, .offset = {}, .color = kGlow});
        m_canvas.fill(Path::roundedRect(m_window.insetBy(-m_borderWidth), m_radius + m_borderWidth), kGlow,
                      FillRule::nonZero);
        m_canvas.restore();
    }

    void drawWindow()
    {
        m_canvas.fill(m_windowShape, kWindow, FillRule::nonZero);
        if (m_isDetailed)
            drawTitleBar();
        const double half = m_borderWidth / 2;
        m_canvas.stroke(Path::roundedRect(m_window.insetBy(-half), m_radius + half), kBorder, m_borderWidth);
    }

    void drawTitleBar()
    {
        const double height = whole(kTitleBarHeight);
        m_canvas.save();
        m_canvas.clip(m_windowShape, FillRule::nonZero);
        m_canvas.fillRect({m_window.x, m_window.y, m_window.width, height}, kTitleBar,
                          CompositingOperation::sourceOver);
        m_canvas.restore();
        if (m_side < kSmallestWithDots)
            return;
        const double radius = height * 0.19;
        for (int i = 0; i < 3; ++i) {
            const Point middle{m_window.x + height * (0.62 + 0.66 * i), m_window.y + height / 2};
            m_canvas.fill(Path::roundedRect({middle.x - radius, middle.y - radius, 2 * radius, 2 * radius}, radius),
                          kDot, FillRule::nonZero);
        }
    }

    void drawBrackets()
    {
        const double width = std::max(2.0, std::round(m_side * kBracketWidth));
        const Rect outer = m_window.insetBy(-std::round(m_side * kBracketDistance) - std::fmod(width, 2) / 2);
        const double length = m_side * kBracketLength;
        const auto corner = [length](double x, double y, double towardsX, double towardsY) {
            return Polyline{{{x, y + towardsY * length}, {x, y}, {x + towardsX * length, y}}};
        };
        const std::array<Polyline, 4> brackets{
            corner(outer.minX(), outer.minY(), 1, 1), corner(outer.maxX(), outer.minY(), -1, 1),
            corner(outer.minX(), outer.maxY(), 1, -1), corner(outer.maxX(), outer.maxY(), -1, -1)};
        m_canvas.strokeLines(brackets, kBracket, {width, LineCap::round, LineJoin::round});
    }

    Canvas& m_canvas;
    double m_side;
    bool m_isDetailed;
    Rect m_tile;
    Rect m_window; // inside its border
    double m_radius = 0;
    double m_borderWidth = 0;
    Path m_tileShape;
    Path m_windowShape;
};

} // namespace

Picture IconPicture::draw(int pixels)
{
    Picture picture(pixels, pixels);
    RasterResources resources;
    const double side = pixels;
    RasterCanvas canvas(resources, picture.buffer(), {.scale = 1, .size = {side, side}}, RasterContents::transparent);
    FlippedCanvas flipped(canvas, side);
    IconDrawing(flipped, pixels).draw();
    return picture;
}

} // namespace haloric
