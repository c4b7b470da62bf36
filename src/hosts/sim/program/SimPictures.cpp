#include "hosts/sim/program/SimPictures.h"

#include "drawing/raster/Png.h"
#include "drawing/raster/RasterCanvas.h"
#include "hosts/sim/scenario/session/SimFailure.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <filesystem>

namespace haloric {

namespace {

constexpr double kScale = 1; // pixels a point
constexpr double kCorner = 10;

constexpr Color kDesktop{0.36, 0.42, 0.50, 1};
constexpr Color kBeyondScreens{0.1, 0.1, 0.1, 1};
constexpr Color kTitleBar{0.86, 0.87, 0.89, 1};
constexpr Color kPaper{0.97, 0.97, 0.98, 1};
constexpr Color kEdge{0.55, 0.56, 0.6, 1};
constexpr Color kCloseButton{0.93, 0.38, 0.35, 1};

// What all screens cover together, in global space.
Rect desktopOf(const SimModel& model)
{
    if (model.screens.empty())
        return {0, 0, 1, 1};
    Rect all = model.screens.front().frame;
    for (const SimScreen& screen : model.screens) {
        const double x = std::min(all.minX(), screen.frame.minX());
        const double y = std::min(all.minY(), screen.frame.minY());
        all = {x, y, std::max(all.maxX(), screen.frame.maxX()) - x, std::max(all.maxY(), screen.frame.maxY()) - y};
    }
    return all;
}

// From global space to a view that shows the desktop, y upward.
Rect onDesktop(const Rect& frame, const Rect& desktop)
{
    return {frame.x - desktop.x, desktop.maxY() - frame.maxY(), frame.width, frame.height};
}

int pixels(double points) { return static_cast<int>(std::lround(points * kScale)); }

Picture pictureOf(const Size& size)
{
    constexpr double kLongest = 16384; // points
    if (!(size.width >= 0 && size.width <= kLongest && size.height >= 0 && size.height <= kLongest))
        throw SimScenarioError("pictures show at most " + std::to_string(pixels(kLongest)) + " points each way");
    return {pixels(size.width), pixels(size.height)};
}

RasterView viewOf(const Size& size) { return {kScale, size, 0, 0}; }

std::uint32_t over(std::uint32_t above, std::uint32_t below)
{
    const std::uint32_t rest = 255 - (above >> 24);
    std::uint32_t result = 0;
    for (int shift = 0; shift < 32; shift += 8) {
        const std::uint32_t value = ((above >> shift) & 255) + (((below >> shift) & 255) * rest + 127) / 255;
        result |= std::min<std::uint32_t>(value, 255) << shift;
    }
    return result;
}

} // namespace

void SimPictures::take(SimPlayer& player, std::size_t step)
{
    std::error_code error;
    std::filesystem::create_directories(m_folder, error);
    char name[64];
    std::snprintf(name, sizeof name, "/%04zu-%09.4f.png", step + 1, player.now().count());
    Picture picture = compose(player);
    if (!Png::write(picture.buffer(), m_folder + name))
        throw SimScenarioError(m_folder + name + ": cannot be written");
}

Picture SimPictures::compose(SimPlayer& player)
{
    const SimModel& model = player.desktop().model;
    const Rect desktop = desktopOf(model);
    Picture picture = pictureOf(desktop.size());
    {
        RasterCanvas canvas(m_resources, picture.buffer(), viewOf(desktop.size()), RasterContents::cleared);
        canvas.fillRect({0, 0, desktop.width, desktop.height}, kBeyondScreens, CompositingOperation::copy);
        for (const SimScreen& screen : model.screens)
            canvas.fillRect(onDesktop(screen.frame, desktop), kDesktop, CompositingOperation::copy);
    }
    const auto& windows = model.windows.frontToBack();
    for (auto i = windows.rbegin(); i != windows.rend(); ++i) {
        if (!model.isOnScreen(**i))
            continue;
        if (!(*i)->overlay)
            paintWindow(picture, desktop, model, **i);
        else if (const auto* window = player.desktop().overlay(static_cast<std::int64_t>((*i)->number)))
            paintOverlay(picture, desktop, *window);
    }
    return picture;
}

void SimPictures::paintWindow(Picture& picture, const Rect& desktop, const SimModel& model, const SimWindow& window)
{
    RasterCanvas canvas(m_resources, picture.buffer(), viewOf(desktop.size()), RasterContents::kept);
    const Rect frame = onDesktop(window.frame, desktop);
    const Path shape = Path::roundedRect(frame, window.fullScreenOrigin ? 0 : kCorner);
    const auto faded = [&](const Color& color) { return color.withAlpha(color.alpha * window.alpha); };
    const SimApp* owner = model.app(window.owner);
    const bool focused = owner && owner->pid == model.frontmost && owner->focused == window.number;
    canvas.fill(shape, faded(kPaper), FillRule::nonZero);
    if (window.decoration == SimDecoration::titled) {
        const double height = std::min(window.titleBarHeight, frame.height);
        canvas.save();
        canvas.clip(shape, FillRule::nonZero);
        canvas.fillRect({frame.x, frame.maxY() - height, frame.width, height}, faded(kTitleBar),
                        CompositingOperation::sourceOver);
        const Rect button{frame.x + 8, frame.maxY() - height / 2 - 6, 12, 12};
        canvas.fill(Path::roundedRect(button, 6), faded(focused ? kCloseButton : kEdge), FillRule::nonZero);
        canvas.restore();
    }
    canvas.stroke(shape, faded(kEdge), 1);
}

// Overlays are drawn into a layer, since a view may erase what it has painted, and then composed over the desktop.
void SimPictures::paintOverlay(Picture& picture, const Rect& desktop, const SimOverlay& window)
{
    const Rect bounds = window.bounds();
    Picture layer = pictureOf(bounds.size());
    RasterCanvas canvas(m_resources, layer.buffer(), viewOf(bounds.size()), RasterContents::transparent);
    window.drawInto(canvas);
    const Rect& frame = window.serverWindow().frame;
    const int left = pixels(frame.x - desktop.x);
    const int top = pixels(frame.y - desktop.y);
    const PixelBuffer target = picture.buffer();
    for (int y = std::max(0, -top); y < layer.height && y + top < picture.height; ++y) {
        for (int x = std::max(0, -left); x < layer.width && x + left < picture.width; ++x)
            target.row(y + top)[x + left] = over(layer.at(x, y), target.row(y + top)[x + left]);
    }
}

} // namespace haloric
