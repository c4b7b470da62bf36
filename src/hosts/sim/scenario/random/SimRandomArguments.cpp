#include "hosts/sim/scenario/random/SimRandomArguments.h"

#include "hosts/sim/scenario/session/SimValues.h"
#include "platform/AccessibilityNames.h"

#include <algorithm>

namespace haloric {

SimJson SimRandomArguments::setup()
{
    SimJson setup{{"version", m_dice.chance(0.3) ? 13 : 14},
                  {"trusted", !m_dice.chance(0.1)},
                  {"jitterSeed", m_dice.below(1'000'000)},
                  {"jitter", m_dice.coin() ? 0.0 : m_dice.milliseconds(0.001, 0.03)}};
    SimJson screens{{{"screen", 1}, {"frame", {0, 0, 1440, 900}}, {"rate", m_dice.coin() ? 60 : 120}}};
    if (m_dice.coin())
        screens.push_back({{"screen", 2}, {"frame", {1440, -90, 1920, 1080}}});
    setup["screens"] = screens;
    SimJson settings = SimJson::object();
    for (int i = 0; i < 3; ++i)
        settings.update(anySetting());
    setup["settings"] = settings;
    if (m_dice.chance(0.05))
        setup["environment"] = {{"HALORIC_DISABLE_WINDOWSERVER_FAST_PATH", "1"}};
    if (m_dice.chance(0.05))
        setup["libraryMissing"] = true;
    if (m_dice.chance(0.1)) {
        const std::vector<std::string> symbols{"SLSMainConnectionID",   "SLSGetWindowBounds",
                                               "SLSRegisterNotifyProc", "SLSRequestNotificationsForWindows",
                                               "SLSTransactionCreate",  "SLSTransactionMoveWindowWithGroup"};
        setup["missingEntries"] = {m_dice.pick(symbols)};
    }
    if (m_dice.chance(0.1))
        setup["eventTapRefused"] = true;
    if (m_dice.chance(0.05))
        setup["videoLinksFail"] = true;
    return setup;
}

SimJson SimRandomArguments::anySetting()
{
    SimJson change = SimJson::object();
    const std::vector<std::string> flags{"borderEnabled", "glowEnabled",        "tintEnabled",  "dimEnabled",
                                         "pulseEnabled",  "hideWhenFullScreen", "hotkeyEnabled"};
    switch (m_dice.below(5)) {
    case 0:
    case 1:
        change[m_dice.pick(flags)] = m_dice.coin();
        break;
    case 2:
        addDimming(change);
        break;
    case 3:
        change["glowRadius"] = m_dice.between(-5, 60);
        break;
    default:
        change["cornerRadius"] = m_dice.between(0, 40);
        change["tintHeight"] = m_dice.between(0, 60);
        break;
    }
    return change;
}

void SimRandomArguments::addDimming(SimJson& change)
{
    change["dimEnabled"] = true;
    change["dimScope"] = m_dice.coin() ? "allWindows" : "selectedApps";
    SimJson apps = SimJson::array();
    for (int app = 1; app <= m_apps + 1; ++app) {
        if (m_dice.coin())
            apps.push_back("org.example.App" + std::to_string(app));
    }
    change["dimApps"] = apps;
}

auto SimRandomArguments::launch() -> Arguments
{
    constexpr std::size_t kMostApps = 6;
    if (m_desktop->model.apps.size() > kMostApps)
        return std::nullopt;
    SimJson arguments{{"app", "App" + std::to_string(++m_apps)}};
    if (m_dice.chance(0.15))
        arguments["bundleID"] = "";
    if (m_dice.chance(0.15))
        arguments["ready"] = false;
    return arguments;
}

auto SimRandomArguments::anyApp() -> Arguments { return SimJson{{"app", m_dice.pick(m_desktop->model.apps)->name}}; }

SimRandomArguments::Arguments SimRandomArguments::appWith(bool (*matches)(const SimApp&))
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

auto SimRandomArguments::hiddenApp() -> Arguments
{
    return appWith([](const SimApp& app) { return app.hidden; });
}

auto SimRandomArguments::otherApp() -> Arguments
{
    return appWith([](const SimApp& app) { return app.pid != SimModel::kOwnProcess; });
}

auto SimRandomArguments::answer() -> Arguments
{
    return withValue(appWith([](const SimApp& app) { return !app.responsive; }), true);
}

auto SimRandomArguments::hang() -> Arguments { return withValue(otherApp(), false); }

auto SimRandomArguments::observable() -> Arguments
{
    const bool value = m_dice.coin();
    return withValue(otherApp(), value);
}

auto SimRandomArguments::anyWindow() -> Arguments
{
    return windowWith([](const SimWindow&) { return true; });
}

SimRandomArguments::Arguments SimRandomArguments::windowWith(bool (*matches)(const SimWindow&))
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

auto SimRandomArguments::minimisedWindow() -> Arguments
{
    return windowWith([](const SimWindow& window) { return window.minimised; });
}

auto SimRandomArguments::fullScreenWindow() -> Arguments
{
    return windowWith([](const SimWindow& window) { return window.fullScreenOrigin.has_value(); });
}

Rect SimRandomArguments::anyFrame()
{
    const auto& screens = m_desktop->model.screens;
    const Rect screen = m_dice.pick(screens).frame;
    if (m_dice.chance(0.04))
        return screen;
    if (m_dice.chance(0.04))
        return {screen.x + 10, screen.y + 10, m_dice.coin() ? 1.0 : 2.0, 400};
    const auto whole = [](double value) { return static_cast<std::int64_t>(value); };
    Rect frame;
    frame.width = m_dice.halves(40, whole(screen.width));
    frame.height = m_dice.halves(30, whole(screen.height));
    frame.x = screen.x + m_dice.halves(-200, whole(screen.width) - 20);
    frame.y = screen.y + m_dice.halves(0, whole(screen.height) - 20);
    return frame;
}

auto SimRandomArguments::open() -> Arguments
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
        (*arguments)["role"] = AXRoles::kSheet;
    return arguments;
}

auto SimRandomArguments::move() -> Arguments
{
    auto arguments = anyWindow();
    if (arguments) {
        const Rect frame = anyFrame();
        (*arguments)["to"] = {frame.x, frame.y};
    }
    return arguments;
}

auto SimRandomArguments::resize() -> Arguments
{
    auto arguments = anyWindow();
    if (arguments) {
        const Rect frame = anyFrame();
        (*arguments)["size"] = {frame.width, frame.height};
    }
    return arguments;
}

auto SimRandomArguments::drag() -> Arguments
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

auto SimRandomArguments::alpha() -> Arguments
{
    const int value = m_dice.coin() ? 0 : 1;
    return withValue(anyWindow(), value);
}

auto SimRandomArguments::layer() -> Arguments
{
    const int value = m_dice.chance(0.3) ? 3 : 0;
    return withValue(anyWindow(), value);
}

auto SimRandomArguments::decoration() -> Arguments
{
    const std::vector<std::string> kinds{"titled", "none", "client"};
    const std::string value = m_dice.pick(kinds);
    auto arguments = withValue(anyWindow(), value);
    if (arguments)
        (*arguments)["titleBar"] = m_dice.between(5, 70);
    return arguments;
}

auto SimRandomArguments::sendToSpace() -> Arguments
{
    auto arguments = windowWith([](const SimWindow& window) { return !window.fullScreenOrigin; });
    if (arguments)
        (*arguments)["space"] = m_dice.between(1, m_desktop->model.ordinarySpaces);
    return arguments;
}

auto SimRandomArguments::space() -> Arguments
{
    if (m_dice.chance(0.2)) { // to a full-screen window's Space
        for (const auto& window : m_desktop->model.windows.frontToBack()) {
            if (window->fullScreenOrigin)
                return SimJson{{"to", window->space}};
        }
    }
    return SimJson{{"to", m_dice.between(1, m_desktop->model.ordinarySpaces)}};
}

auto SimRandomArguments::plug() -> Arguments
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

auto SimRandomArguments::unplug() -> Arguments
{
    const auto& screens = m_desktop->model.screens;
    if (screens.size() < 2)
        return std::nullopt;
    return SimJson{{"screen", static_cast<std::int64_t>(m_dice.pick(screens).id)}};
}

auto SimRandomArguments::resizeScreen() -> Arguments
{
    const auto& screens = m_desktop->model.screens;
    if (screens.empty())
        return std::nullopt;
    const SimJson size = m_dice.coin() ? SimJson{1280, 800} : SimJson{1600, 1000};
    return SimJson{{"screen", static_cast<std::int64_t>(m_dice.pick(screens).id)}, {"size", size}};
}

auto SimRandomArguments::trust() -> Arguments { return withValue(none(), !m_desktop->model.trusted); }

auto SimRandomArguments::wallClock() -> Arguments { return SimJson{{"seconds", m_dice.between(-4000, 4000)}}; }

auto SimRandomArguments::settings() -> Arguments { return SimJson{{"change", anySetting()}}; }

auto SimRandomArguments::key() -> Arguments
{
    if (m_dice.chance(0.2)) // the hotkey
        return SimJson{{"code", 3}, {"modifiers", {"control", "option", "command"}}};
    const std::vector<std::int64_t> codes{20, 21, 23, 53, 0};
    const std::vector<std::string> names{"shift", "control", "option", "command"};
    SimJson modifiers = SimJson::array();
    for (const auto& name : names) {
        if (m_dice.coin())
            modifiers.push_back(name);
    }
    return SimJson{{"code", m_dice.pick(codes)}, {"modifiers", modifiers}};
}

auto SimRandomArguments::menu() -> Arguments
{
    std::vector<std::string> titles{"Border", "Glow",      "Title-bar tint",  "Dim other windows",
                                    "Teal",   "Settings…", "Launch at Login", "About Haloric"};
    if (!m_desktop->model.trusted)
        titles.emplace_back("Grant Accessibility Permission…");
    return SimJson{{"title", m_dice.pick(titles)}};
}

auto SimRandomArguments::control() -> Arguments
{
    const auto isSettings = [](const auto& window) { return window->name == "Haloric Settings"; };
    if (std::ranges::none_of(m_desktop->model.windows.frontToBack(), isSettings))
        return std::nullopt;
    const std::vector<std::string> switches{"borderEnabled", "glowEnabled", "tintEnabled", "dimEnabled",
                                            "hotkeyEnabled"};
    if (m_dice.coin())
        return SimJson{{"id", m_dice.pick(switches)}, {"on", m_dice.coin()}};
    return SimJson{{"id", "glowRadius"}, {"value", m_dice.between(0, 70)}};
}

auto SimRandomArguments::failCall() -> Arguments
{
    if (!m_dice.chance(0.3))
        return std::nullopt;
    const std::vector<std::string> entries{"SLSGetWindowBounds", "SLSRegisterNotifyProc", "SLSRemoveNotifyProc",
                                           "SLSRequestNotificationsForWindows", "SLSTransactionCreate"};
    return SimJson{{"entry", m_dice.pick(entries)}, {"call", m_dice.between(1, 20)}};
}

auto SimRandomArguments::refuseNotifications() -> Arguments
{
    using namespace AXNotifications;
    SimJson refused = SimJson::array();
    for (const auto name : {kFocusedWindowChanged, kMainWindowChanged, kWindowMoved, kWindowResized,
                            kWindowMiniaturized, kElementDestroyed})
        if (m_dice.chance(0.2))
            refused.push_back(name);
    return SimJson{{"names", refused}};
}

auto SimRandomArguments::notify() -> Arguments
{
    std::vector<std::int64_t> events;
    for (const WindowServerEvent event : kWindowServerEvents)
        events.push_back(static_cast<std::int64_t>(event));
    events.insert(events.end(), {1, 815}); // unknown ones
    const auto& windows = m_desktop->model.windows.frontToBack();
    const auto number = windows.empty() ? 99 : static_cast<std::int64_t>(m_dice.pick(windows)->number);
    return SimJson{{"event", m_dice.pick(events)}, {"number", number}};
}

auto SimRandomArguments::button() -> Arguments { return SimJson{{"button", m_dice.coin() ? "left" : "right"}}; }

auto SimRandomArguments::disableTap() -> Arguments
{
    return SimJson{{"reason", m_dice.coin() ? "timeout" : "userInput"}};
}

auto SimRandomArguments::timeOutCall() -> Arguments { return SimJson{{"call", m_dice.between(1, 30)}}; }

auto SimRandomArguments::missWindowLists() -> Arguments { return SimJson{{"count", m_dice.between(1, 3)}}; }

auto SimRandomArguments::failSaves() -> Arguments { return withValue(none(), m_dice.coin()); }

} // namespace haloric
