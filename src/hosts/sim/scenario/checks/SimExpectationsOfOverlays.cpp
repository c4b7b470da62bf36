// Expectations of what is on screen: looked up in the window server's record of each overlay and in what was drawn.
#include "hosts/sim/scenario/checks/SimExpectations.h"

#include "hosts/sim/scenario/SimFailure.h"
#include "hosts/sim/scenario/SimPlayer.h"
#include "hosts/sim/scenario/checks/SimOracle.h"
#include "hosts/sim/scenario/checks/SimText.h"
#include "hosts/sim/scenario/steps/SimValues.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace haloric {

namespace {

void require(bool condition, const std::string& otherwise)
{
    if (!condition)
        throw SimFailure(otherwise);
}

bool isSeen(SimPlayer& player, const SimToolkitWindow& window)
{
    return window.isVisible() && player.desktop().model.isOnScreen(window.serverWindow());
}

const SimToolkitWindow& highlightWindow(SimPlayer& player)
{
    return *player.session().toolkitWindow(player.session().overlays()->highlightWindow().windowNumber());
}

bool isWithin(const Rect& a, const Rect& b, double tolerance)
{
    const auto near = [&](double x, double y) { return std::abs(x - y) <= tolerance; };
    return near(a.x, b.x) && near(a.y, b.y) && near(a.width, b.width) && near(a.height, b.height);
}

// The rectangles that a drawing pass filled with this blend mode, in screen space of the window.
std::vector<Rect> filledShapes(const SimToolkitWindow& window, BlendMode mode)
{
    std::vector<Rect> shapes;
    for (const auto& drawing : window.shownDrawings()) {
        const auto* fill = std::get_if<RecordingCanvas::Fill>(&drawing.call);
        if (!fill || drawing.state.blendMode != mode)
            continue;
        for (const auto& shape : fill->path.shapes()) {
            if (const auto* rounded = std::get_if<RoundedRect>(&shape))
                shapes.push_back(rounded->rect);
        }
    }
    return shapes;
}

bool noneSeen(SimPlayer& player, std::span<const std::unique_ptr<OverlayWindow>> windows)
{
    return std::ranges::none_of(windows, [&](const auto& window) {
        return isSeen(player, *player.session().toolkitWindow(window->windowNumber()));
    });
}

} // namespace

void expectHighlight(SimPlayer& player, const SimJson& arguments)
{
    const SimToolkitWindow& window = highlightWindow(player);
    require(isSeen(player, window), "the highlight is not on screen");
    const double margin = SimOracle(player.desktop().model, player.session().settingsStore().settings()).margin();
    const Rect surrounded = window.serverWindow().frame.insetBy(margin);
    const double tolerance = arguments.value("within", 0.01);
    if (arguments.contains("frame")) {
        const Rect frame = simRectFrom(arguments["frame"]);
        require(isWithin(surrounded, frame, tolerance),
                "the highlight surrounds " + simText(surrounded) + ", not " + simText(frame));
    }
    if (arguments.contains("around")) {
        const Rect frame = player.window(arguments, "around").frame;
        require(isWithin(surrounded, frame, tolerance),
                "the highlight surrounds " + simText(surrounded) + ", not " + simText(frame));
    }
    const auto& front = player.desktop().model.windows.frontToBack();
    const auto top = std::ranges::find_if(front, [&](const auto& other) { return other->overlay && other->orderedIn; });
    require((*top)->number == window.serverWindow().number, "another overlay lies above the highlight");
}

void expectNoHighlight(SimPlayer& player, const SimJson&)
{
    require(!isSeen(player, highlightWindow(player)), "the highlight is on screen");
}

void expectDim(SimPlayer& player, const SimJson& arguments)
{
    const SimModel& model = player.desktop().model;
    const auto windows = player.session().overlays()->dimWindows();
    const Rect hole = model.flipped(player.window(arguments, "hole").frame);
    require(windows.size() == model.screens.size(), "there is not one dimming window a screen");
    for (std::size_t i = 0; i < windows.size(); ++i) {
        const SimToolkitWindow& window = *player.session().toolkitWindow(windows[i]->windowNumber());
        const std::string screen = "screen " + std::to_string(i + 1);
        require(isSeen(player, window), screen + " is not dimmed");
        require(window.serverWindow().frame == model.screens[i].frame, screen + " is not covered by its dimming");
        const Point origin = model.flipped(model.screens[i].frame).origin();
        const Rect local = hole.translatedBy(-origin.x, -origin.y);
        const auto holes = filledShapes(window, BlendMode::normal);
        const bool touches = intersects(local, window.bounds());
        require(touches ? holes.size() == 1 && simNear(holes.front(), local) : holes.empty(),
                touches ? screen + " has no hole at " + simText(local) : screen + " has a hole");
    }
}

void expectNoDim(SimPlayer& player, const SimJson&)
{
    require(noneSeen(player, player.session().overlays()->dimWindows()), "a screen is dimmed");
    require(noneSeen(player, player.session().overlays()->appDimWindows()), "applications are dimmed");
}

void expectAppDim(SimPlayer& player, const SimJson& arguments)
{
    const SimModel& model = player.desktop().model;
    const auto windows = player.session().overlays()->appDimWindows();
    for (std::size_t i = 0; i < windows.size(); ++i) {
        const SimToolkitWindow& window = *player.session().toolkitWindow(windows[i]->windowNumber());
        require(isSeen(player, window), "applications are not dimmed");
        const Point origin = model.flipped(model.screens[i].frame).origin();
        std::vector<Rect> expected;
        for (const std::string& name : arguments["dimmed"].get<std::vector<std::string>>()) {
            const Rect frame = model.flipped(player.window({{"window", name}}).frame);
            if (const Rect local = frame.translatedBy(-origin.x, -origin.y); intersects(local, window.bounds()))
                expected.push_back(local);
        }
        const auto dimmed = filledShapes(window, BlendMode::normal);
        require(std::ranges::is_permutation(dimmed, expected), "other windows are dimmed on screen " +
                                                                   std::to_string(i + 1) + ": " +
                                                                   std::to_string(dimmed.size()) + " of them");
    }
}

void expectTint(SimPlayer& player, const SimJson& arguments)
{
    double height = 0;
    for (const auto& drawing : highlightWindow(player).shownDrawings()) {
        if (const auto* band = std::get_if<RecordingCanvas::FillRect>(&drawing.call))
            height = band->rect.height;
    }
    const double expected = arguments["height"].get<double>();
    require(std::abs(height - expected) < 0.01,
            "the tint is " + std::to_string(height) + " points high, not " + std::to_string(expected));
}

} // namespace haloric
