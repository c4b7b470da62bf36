// The arguments that random steps are made with.
#include "hosts/sim/scenario/random/SimRandomSteps.h"

#include "hosts/sim/scenario/steps/SimValues.h"

#include <algorithm>

namespace haloric {

namespace {

// Frames and sizes in whole points, now and then in halves.
double halves(SimDice& dice, std::int64_t least, std::int64_t most)
{
    const auto whole = static_cast<double>(dice.between(least, most));
    return dice.chance(0.1) ? whole + 0.5 : whole;
}

} // namespace

SimRandomSteps::Arguments SimRandomSteps::launch()
{
    constexpr std::size_t kMostApps = 6;
    if (m_desktop->model.apps.size() > kMostApps)
        return std::nullopt;
    SimJson arguments{{"app", "App" + std::to_string(++m_apps)}};
    if (m_dice.chance(0.15))
        arguments["bundleID"] = "";
    return arguments;
}

SimRandomSteps::Arguments SimRandomSteps::anyApp()
{
    return SimJson{{"app", m_dice.pick(m_desktop->model.apps)->name}};
}

SimRandomSteps::Arguments SimRandomSteps::appWith(bool (*matches)(const SimApp&))
{
    std::vector<const SimApp*> found;
    for (const auto& app : m_desktop->model.apps) {
        if (matches(*app))
            found.push_back(app.get());
    }
    if (found.empty())
        return std::nullopt;
    return SimJson{{"app", m_dice.pick(found)->name}};
}

SimRandomSteps::Arguments SimRandomSteps::anyWindow()
{
    return windowWith([](const SimWindow&) { return true; });
}

SimRandomSteps::Arguments SimRandomSteps::windowWith(bool (*matches)(const SimWindow&))
{
    std::vector<const SimWindow*> found;
    for (const auto& window : m_desktop->model.windows.frontToBack()) {
        if (!window->overlay && matches(*window))
            found.push_back(window.get());
    }
    if (found.empty())
        return std::nullopt;
    return SimJson{{"window", m_dice.pick(found)->name}};
}

Rect SimRandomSteps::anyFrame()
{
    const auto& screens = m_desktop->model.screens;
    const Rect screen = m_dice.pick(screens).frame;
    if (m_dice.chance(0.04))
        return screen;
    if (m_dice.chance(0.04))
        return {screen.x + 10, screen.y + 10, m_dice.coin() ? 1.0 : 2.0, 400};
    const auto whole = [](double value) { return static_cast<std::int64_t>(value); };
    Rect frame;
    frame.width = halves(m_dice, 40, whole(screen.width));
    frame.height = halves(m_dice, 30, whole(screen.height));
    frame.x = screen.x + halves(m_dice, -200, whole(screen.width) - 20);
    frame.y = screen.y + halves(m_dice, 0, whole(screen.height) - 20);
    return frame;
}

SimRandomSteps::Arguments SimRandomSteps::open()
{
    constexpr std::size_t kMostWindows = 14;
    if (m_desktop->model.windows.frontToBack().size() > kMostWindows)
        return std::nullopt;
    auto arguments = anyApp();
    (*arguments)["window"] = "w" + std::to_string(++m_windows);
    (*arguments)["frame"] = simJsonFrom(anyFrame());
    if (m_dice.chance(0.2))
        (*arguments)["decoration"] = m_dice.coin() ? "none" : "client";
    if (m_dice.chance(0.1))
        (*arguments)["numberUntold"] = true;
    if (m_dice.chance(0.05))
        (*arguments)["layer"] = 3;
    if (m_dice.chance(0.05))
        (*arguments)["role"] = "AXSheet";
    return arguments;
}

SimRandomSteps::Arguments SimRandomSteps::move()
{
    auto arguments = anyWindow();
    if (arguments) {
        const Rect frame = anyFrame();
        (*arguments)["to"] = {frame.x, frame.y};
    }
    return arguments;
}

SimRandomSteps::Arguments SimRandomSteps::resize()
{
    auto arguments = anyWindow();
    if (arguments) {
        const Rect frame = anyFrame();
        (*arguments)["size"] = {frame.width, frame.height};
    }
    return arguments;
}

SimRandomSteps::Arguments SimRandomSteps::drag()
{
    auto arguments = m_dice.chance(0.7) ? Arguments() : anyWindow();
    if (!arguments) { // mostly the focused window, as users do
        const SimApp* app = m_desktop->model.frontmostApp();
        const SimWindow* window = app ? m_desktop->model.windows.find(app->focused) : nullptr;
        if (!window)
            return std::nullopt;
        arguments = SimJson{{"window", window->name}};
    }
    const Rect frame = anyFrame();
    if (m_dice.chance(0.8))
        (*arguments)["to"] = {frame.x, frame.y};
    else
        (*arguments)["size"] = {frame.width, frame.height};
    (*arguments)["seconds"] = m_dice.milliseconds(0.02, 0.5);
    if (m_dice.chance(0.2))
        (*arguments)["rate"] = m_dice.coin() ? 60 : 250;
    return arguments;
}

SimRandomSteps::Arguments SimRandomSteps::sendToSpace()
{
    auto arguments = windowWith([](const SimWindow& window) { return !window.fullScreenOrigin; });
    if (arguments)
        (*arguments)["space"] = m_dice.between(1, m_desktop->model.ordinarySpaces);
    return arguments;
}

SimRandomSteps::Arguments SimRandomSteps::space()
{
    if (m_dice.chance(0.2)) { // to a full-screen window's Space
        for (const auto& window : m_desktop->model.windows.frontToBack()) {
            if (window->fullScreenOrigin)
                return SimJson{{"to", window->space}};
        }
    }
    return SimJson{{"to", m_dice.between(1, m_desktop->model.ordinarySpaces)}};
}

SimRandomSteps::Arguments SimRandomSteps::plug()
{
    const auto& screens = m_desktop->model.screens;
    if (screens.size() >= 3)
        return std::nullopt;
    std::int64_t number = 1;
    const auto taken = [&](const SimScreen& screen) { return static_cast<std::int64_t>(screen.id) == number; };
    while (std::ranges::any_of(screens, taken))
        ++number;
    const Rect last = screens.back().frame;
    const SimJson frame =
        m_dice.coin() ? SimJson{last.maxX(), last.y, 1280, 800} : SimJson{last.x, last.y - 1080, 1920, 1080};
    return SimJson{{"screen", number}, {"frame", frame}, {"rate", m_dice.coin() ? 60 : 120}};
}

SimRandomSteps::Arguments SimRandomSteps::unplug()
{
    const auto& screens = m_desktop->model.screens;
    if (screens.size() < 2)
        return std::nullopt;
    return SimJson{{"screen", static_cast<std::int64_t>(m_dice.pick(screens).id)}};
}

SimRandomSteps::Arguments SimRandomSteps::resizeScreen()
{
    const auto& screens = m_desktop->model.screens;
    if (screens.empty())
        return std::nullopt;
    const SimJson size = m_dice.coin() ? SimJson{1280, 800} : SimJson{1600, 1000};
    return SimJson{{"screen", static_cast<std::int64_t>(m_dice.pick(screens).id)}, {"size", size}};
}

} // namespace haloric
