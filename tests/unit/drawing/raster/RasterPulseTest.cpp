// A step of the pulse redraws only where two rings can differ.
#include "overlay/HighlightView.h"
#include "support/PictureDifference.h"
#include "support/RasterScene.h"

#include <cmath>

namespace haloric {
namespace {

enum class Damage { all, barsAlone };

struct Pulse {
    HighlightView view;
    double scale = 1;

    Pulse(double newScale, const Rect& window) : scale(newScale)
    {
        view.windowRect = window;
        view.settings.tintEnabled = true;
        view.tintHeight = 22;
    }

    RasterScene scene()
    {
        return {"pulse", {200, 170}, scale, [this](Canvas& canvas, const Rect& bounds) { view.draw(canvas, bounds); }};
    }

    std::vector<PixelRect> damage(double before, double after, Damage extent)
    {
        std::vector<PixelRect> pixels;
        for (const Rect& rect : view.pulseDamage(before, after)) {
            const int left = static_cast<int>(std::floor(rect.minX() * scale));
            const int top = static_cast<int>(std::floor((170 - rect.maxY()) * scale));
            pixels.push_back({left, top, static_cast<int>(std::ceil(rect.maxX() * scale)) - left,
                              static_cast<int>(std::ceil((170 - rect.minY()) * scale)) - top});
        }
        if (extent == Damage::barsAlone)
            pixels.resize(4);
        return pixels;
    }

    // Pixels that differ from a full redraw, over a whole pulse of `frames` frames.
    int wrongPixels(int frames, Damage extent)
    {
        RasterResources resources;
        Picture picture = scene().whole();
        int wrong = 0;
        double before = 0;
        for (int frame = 1; frame <= frames; ++frame) {
            const double now = frame / static_cast<double>(frames);
            const std::vector<PixelRect> changed = damage(before, now, extent);
            view.pulseProgress = before = now;
            scene().redraw(picture, resources, changed);
            wrong += PictureDifference::of(scene().whole(), picture).pixels;
        }
        return wrong;
    }
};

TEST(RasterPulse, redrawing_the_damage_is_the_same_as_redrawing_all)
{
    for (const double scale : {1.0, 1.25, 2.0}) {
        for (const Rect& window : {Rect{45, 45, 110, 80}, Rect{45.3, 45.7, 101.4, 70.9}, Rect{60, 60, 14, 9}}) {
            EXPECT_EQ(Pulse(scale, window).wrongPixels(33, Damage::all), 0) << scale;
            EXPECT_EQ(Pulse(scale, window).wrongPixels(5, Damage::all), 0) << scale; // frames were missed
        }
    }
}

TEST(RasterPulse, redrawing_the_bars_alone_leaves_trails_at_the_corners)
{
    EXPECT_GT(Pulse(1, {45, 45, 110, 80}).wrongPixels(33, Damage::barsAlone), 100);
}

} // namespace
} // namespace haloric
