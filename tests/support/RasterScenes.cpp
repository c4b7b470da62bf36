#include "support/RasterScenes.h"

#include "overlay/AppDimView.h"
#include "overlay/DimView.h"
#include "overlay/HighlightView.h"
#include "support/GoldenPictures.h"

#include <cmath>

namespace haloric {

namespace {

constexpr double kMargin = 40; // points around the window; what the default glow gets
constexpr Rect kWindow{kMargin, kMargin, 100, 70};

enum Layer : unsigned { glow = 1, tint = 2, border = 4 };

Settings settingsWith(unsigned layers)
{
    Settings settings;
    settings.glowEnabled = layers & glow;
    settings.tintEnabled = layers & tint;
    settings.borderEnabled = layers & border;
    settings.glowColor = {false, {0.6, 0.2, 1, 1}}; // not the border's, so that the layers can be distinguished
    settings.tintColor = {false, {0.1, 0.8, 0.4, 1}};
    return settings;
}

RasterScene highlightScene(const std::string& name, double scale, const Settings& settings, const Rect& window,
                           double pulse = 0, double tintHeight = 28)
{
    HighlightView view;
    view.settings = settings;
    view.windowRect = window;
    view.tintHeight = tintHeight;
    view.pulseProgress = pulse;
    const Size size{std::ceil(window.maxX() + kMargin), std::ceil(window.maxY() + kMargin)};
    return {GoldenPictures::scaled(name, scale), size, scale,
            [view](Canvas& canvas, const Rect& bounds) mutable { view.draw(canvas, bounds); }};
}

RasterScene dimScene(const std::string& name, double scale, std::optional<Rect> hole)
{
    DimView view;
    view.settings.dimEnabled = true;
    view.holeRect = hole;
    return {GoldenPictures::scaled(name, scale), {160, 101}, scale, [view](Canvas& canvas, const Rect& bounds) mutable {
                view.draw(canvas, bounds);
            }};
}

RasterScene appDimScene(double scale)
{
    AppDimView view;
    view.settings.dimEnabled = true;
    view.settings.dimScope = DimScope::selectedApps;
    view.windows = {{{10, 10, 90, 60}, true},
                    {{60, 30, 80, 60}, true},
                    {{40, 5, 50, 45}, false},
                    {{120.5, 60.25, 10, 30}, true},
                    {{70, 40, 30, 30}, false}};
    return {GoldenPictures::scaled("app-dim", scale),
            {160, 101},
            scale,
            [view](Canvas& canvas, const Rect& bounds) mutable { view.draw(canvas, bounds); }};
}

} // namespace

std::vector<RasterScene> RasterScenes::highlight()
{
    std::vector<RasterScene> scenes;
    for (const double scale : {1.0, 2.0}) {
        scenes.push_back(highlightScene("glow", scale, settingsWith(glow), kWindow));
        scenes.push_back(highlightScene("tint", scale, settingsWith(tint), kWindow));
        scenes.push_back(highlightScene("border", scale, settingsWith(border), kWindow));
        scenes.push_back(highlightScene("glow-tint-border", scale, settingsWith(glow | tint | border), kWindow));
        for (const int percent : {10, 50, 90})
            scenes.push_back(
                highlightScene("pulse-" + std::to_string(percent), scale, settingsWith(0), kWindow, percent / 100.0));
        scenes.push_back(highlightScene("all-with-pulse-30", scale, settingsWith(glow | tint | border), kWindow, 0.3));
        scenes.push_back(
            highlightScene("small-window", scale, settingsWith(glow | border), {kMargin, kMargin, 24, 18}, 0.4));
        scenes.push_back(
            highlightScene("tint-higher-than-window", scale, settingsWith(tint | border), {kMargin, kMargin, 60, 20}));
        Settings sharp = settingsWith(glow | border);
        sharp.cornerRadius = 1;
        sharp.borderWidth = 6;
        scenes.push_back(highlightScene("sharp-corners", scale, sharp, kWindow));
        Settings translucent = settingsWith(glow | border);
        translucent.borderColor = {false, {1, 0.2, 0.1, 0.5}};
        translucent.glowColor = {false, {1, 0.6, 0, 0.5}};
        scenes.push_back(highlightScene("translucent", scale, translucent, kWindow));
    }
    for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
        const Rect between{kMargin + 0.3, kMargin + 0.6, 91.45, 70.2};
        scenes.push_back(
            highlightScene("between-pixels", scale, settingsWith(glow | tint | border), between, 0.35, 27.3));
        scenes.push_back(highlightScene("small-between-pixels", scale, settingsWith(glow | border),
                                        {kMargin + 0.3, kMargin + 0.6, 21.3, 130.7}));
    }
    return scenes;
}

std::vector<RasterScene> RasterScenes::dimming()
{
    std::vector<RasterScene> scenes;
    for (const double scale : {1.0, 1.25, 2.0}) {
        scenes.push_back(dimScene("dim", scale, std::nullopt));
        scenes.push_back(dimScene("dim-hole", scale, Rect{30, 20, 80, 50}));
        scenes.push_back(dimScene("dim-hole-between-pixels", scale, Rect{30.3, 20.7, 80.4, 50.2}));
        scenes.push_back(dimScene("dim-hole-at-the-edge", scale, Rect{-20, 70, 80, 60}));
        scenes.push_back(dimScene("dim-small-hole", scale, Rect{30, 20, 12, 9}));
        scenes.push_back(dimScene("dim-hole-everywhere", scale, Rect{-5, -5, 180, 120}));
        scenes.push_back(appDimScene(scale));
    }
    return scenes;
}

std::vector<RasterScene> RasterScenes::all()
{
    std::vector<RasterScene> scenes = highlight();
    for (RasterScene& scene : dimming())
        scenes.push_back(std::move(scene));
    return scenes;
}

std::vector<RasterScene> RasterScenes::otherScales()
{
    std::vector<RasterScene> scenes;
    for (const double scale : {1.75, 2.25, 3.0, 4.0}) {
        const Rect between{kMargin + 0.3, kMargin + 0.6, 41.45, 30.2};
        scenes.push_back(highlightScene("all", scale, settingsWith(glow | tint | border), {kMargin, kMargin, 60, 40}));
        scenes.push_back(
            highlightScene("between-pixels", scale, settingsWith(glow | tint | border), between, 0.35, 17.3));
        scenes.push_back(dimScene("dim-hole-between-pixels", scale, Rect{30.3, 20.7, 80.4, 50.2}));
        scenes.push_back(appDimScene(scale));
    }
    return scenes;
}

std::vector<RasterScene> RasterScenes::singleShapes()
{
    std::vector<RasterScene> scenes;
    for (const double scale : {1.0, 1.5, 2.0})
        for (const double shift : {0.0, 0.3}) {
            const Rect window = Rect{kMargin, kMargin, 91.5, 60.25}.translatedBy(shift, shift / 2);
            const std::string place = "-" + std::to_string(std::lround(shift * 100));
            scenes.push_back(highlightScene("border" + place, scale, settingsWith(border), window));
            scenes.push_back(highlightScene("pulse-20" + place, scale, settingsWith(0), window, 0.2));
            scenes.push_back(highlightScene("pulse-70" + place, scale, settingsWith(0), window, 0.7));
            scenes.push_back(dimScene("dim-hole" + place, scale, window));
            scenes.push_back(dimScene("dim-tiny-hole" + place, scale, Rect{60 + shift, 50, 3.3, 2.2}));
            const auto erase = [window](Canvas& canvas, const Rect& bounds) {
                canvas.fillRect(bounds, {0.2, 0.4, 0.6, 0.8}, CompositingOperation::copy);
                canvas.setBlendMode(BlendMode::clear);
                canvas.fill(Path::roundedRect(window, 9), {}, FillRule::nonZero);
            };
            scenes.push_back({GoldenPictures::scaled("erased" + place, scale), {180, 150}, scale, erase});
        }
    return scenes;
}

} // namespace haloric
