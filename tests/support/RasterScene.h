// A scene, and the ways to draw it into memory: at once, in parts, with or without the fast ways.
#pragma once

#include "drawing/raster/Picture.h"
#include "drawing/raster/RasterCanvas.h"

#include <functional>
#include <string>

namespace haloric {

struct RasterScene {
    std::string name;
    Size view; // points
    double scale = 1;
    std::function<void(Canvas&, const Rect& bounds)> draw;

    PixelRect pixels() const { return DeviceSpace(scale, view).pixels(); }

    Picture whole(RasterWays ways = RasterWays::fast) const
    {
        RasterResources resources;
        return part(resources, pixels(), ways);
    }

    // One part in a buffer of its own.
    Picture part(RasterResources& resources, const PixelRect& area, RasterWays ways = RasterWays::fast) const
    {
        Picture picture(area.width, area.height);
        RasterCanvas canvas(resources, picture.buffer(), {scale, view, area.x, area.y}, RasterContents::transparent,
                            ways);
        draw(canvas, bounds());
        return picture;
    }

    // Clears and draws again within `damage` of a picture of the whole.
    void redraw(Picture& picture, RasterResources& resources, std::span<const PixelRect> damage,
                RasterWays ways = RasterWays::fast) const
    {
        RasterCanvas canvas(resources, picture.buffer(), {scale, view, 0, 0}, RasterContents::cleared, damage, ways);
        draw(canvas, bounds());
    }

    Rect bounds() const { return {0, 0, view.width, view.height}; }
};

inline void PrintTo(const RasterScene& scene, std::ostream* out) { *out << scene.name; }

} // namespace haloric
