// Random steps that concern the system: how it is at the start, settings, keys and faults.
#include "hosts/sim/scenario/random/SimRandomSteps.h"

#include <algorithm>

namespace haloric {

SimJson SimRandomSteps::setup()
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

SimJson SimRandomSteps::anySetting()
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

void SimRandomSteps::addDimming(SimJson& change)
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

SimRandomSteps::Arguments SimRandomSteps::settings() { return SimJson{{"change", anySetting()}}; }

SimRandomSteps::Arguments SimRandomSteps::key()
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

SimRandomSteps::Arguments SimRandomSteps::menu()
{
    std::vector<std::string> titles{"Border", "Glow",      "Title-bar tint",  "Dim other windows",
                                    "Teal",   "Settings…", "Launch at Login", "About Haloric"};
    if (!m_desktop->model.trusted)
        titles.emplace_back("Grant Accessibility Permission…");
    return SimJson{{"title", m_dice.pick(titles)}};
}

SimRandomSteps::Arguments SimRandomSteps::control()
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

SimRandomSteps::Arguments SimRandomSteps::failCall()
{
    const std::vector<std::string> entries{"SLSGetWindowBounds", "SLSRegisterNotifyProc", "SLSRemoveNotifyProc",
                                           "SLSRequestNotificationsForWindows", "SLSTransactionCreate"};
    return SimJson{{"entry", m_dice.pick(entries)}, {"call", m_dice.between(1, 20)}};
}

SimRandomSteps::Arguments SimRandomSteps::refuseNotifications()
{
    const std::vector<std::string> names{"AXFocusedWindowChanged", "AXMainWindowChanged",  "AXWindowMoved",
                                         "AXWindowResized",        "AXWindowMiniaturized", "AXUIElementDestroyed"};
    SimJson refused = SimJson::array();
    for (const auto& name : names) {
        if (m_dice.chance(0.2))
            refused.push_back(name);
    }
    return SimJson{{"names", refused}};
}

SimRandomSteps::Arguments SimRandomSteps::notify()
{
    const std::vector<std::int64_t> events{804, 806, 807, 816, 1, 815};
    const auto& windows = m_desktop->model.windows.frontToBack();
    const auto number = windows.empty() ? 99 : static_cast<std::int64_t>(m_dice.pick(windows)->number);
    return SimJson{
        {"event", m_dice.pick(events)}, {"number", number}, {"length", m_dice.coin() ? 4 : m_dice.between(0, 3)}};
}

} // namespace haloric
