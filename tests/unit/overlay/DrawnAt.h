// Whether recorded drawing can colour a point: by geometry only, without a rasteriser.
#pragma once

#include "drawing/RecordingCanvas.h"

#include <algorithm>
#include <cmath>

namespace haloric {

inline bool contains(const Rect& rect, Point p)
{
    return p.x >= rect.minX() && p.x <= rect.maxX() && p.y >= rect.minY() && p.y <= rect.maxY();
}

inline bool contains(const RoundedRect& shape, Point p)
{
    if (!contains(shape.rect, p))
        return false;
    const double radius = std::clamp(shape.radius, 0.0, std::min(shape.rect.width, shape.rect.height) / 2);
    const double dx = std::max({shape.rect.minX() + radius - p.x, p.x - (shape.rect.maxX() - radius), 0.0});
    const double dy = std::max({shape.rect.minY() + radius - p.y, p.y - (shape.rect.maxY() - radius), 0.0});
    return std::hypot(dx, dy) <= radius;
}

inline bool contains(const Path& path, FillRule rule, Point p)
{
    int covered = 0;
    for (const Path::Shape& shape : path.shapes())
        covered += std::visit([p](const auto& s) { return contains(s, p); }, shape) ? 1 : 0;
    return rule == FillRule::evenOdd ? covered % 2 == 1 : covered > 0;
}

inline RoundedRect grown(const RoundedRect& shape, double amount)
{
    // Square corners stay square, as a mitre join makes them.
    const double radius = shape.radius > 0 ? std::max(shape.radius + amount, 0.0) : 0;
    return {shape.rect.insetBy(-amount), radius};
}

inline bool drawnAt(const RecordingCanvas::Fill& fill, const RecordingCanvas::State& state, Point p)
{
    if (contains(fill.path, fill.rule, p))
        return true;
    if (!state.shadow)
        return false;
    const auto* shape = std::get_if<RoundedRect>(&fill.path.shapes()[0]);
    return shape && contains(shape->rect.insetBy(-state.shadow->blurRadius), p);
}

inline bool drawnAt(const RecordingCanvas::FillRect& fill, const RecordingCanvas::State&, Point p)
{
    return contains(fill.rect, p);
}

inline bool drawnAt(const RecordingCanvas::Stroke& stroke, const RecordingCanvas::State&, Point p)
{
    const auto& shape = std::get<RoundedRect>(stroke.path.shapes()[0]);
    const double half = stroke.lineWidth / 2;
    return contains(grown(shape, half), p) && !contains(grown(shape, -half), p);
}

// No overlay draws open lines.
inline bool drawnAt(const RecordingCanvas::StrokeLines&, const RecordingCanvas::State&, Point)
{
    ADD_FAILURE() << "open lines in an overlay";
    return false;
}

inline bool drawnAt(const RecordingCanvas::Drawing& drawing, Point p)
{
    for (const auto& clip : drawing.state.clips) {
        if (!contains(clip.path, clip.rule, p))
            return false;
    }
    return std::visit([&](const auto& call) { return drawnAt(call, drawing.state, p); }, drawing.call);
}

inline bool drawnAt(const RecordingCanvas& canvas, Point p)
{
    return std::ranges::any_of(canvas.drawings(), [p](const auto& drawing) { return drawnAt(drawing, p); });
}

} // namespace haloric
