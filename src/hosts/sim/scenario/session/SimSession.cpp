#include "hosts/sim/scenario/session/SimSession.h"

#include <algorithm>

namespace haloric {

SimSession::SimSession(const SimSetup& setup)
{
    m_desktop.systemVersion = setup.systemVersion;
    m_desktop.faults = setup.faults;
    m_desktop.model.trusted = setup.trusted;
    m_desktop.model.ordinarySpaces = setup.spaces;
    m_desktop.model.lastSpace = setup.spaces;
    m_desktop.model.screens = setup.screens;
    m_desktop.notifier.setJitter(setup.jitterSeed, Seconds(setup.jitterSeconds));
    bundle.bundlePath = setup.bundlePath;
    processes.environment = setup.environment;
    if (!setup.storedSettings.empty())
        userDefaults.preset(SettingsStore::kDefaultsKey, setup.storedSettings);
    for (const std::int64_t answer : setup.alertAnswers)
        alerts.willAnswer(static_cast<std::size_t>(answer));

    m_entry = std::make_unique<HaloricProgram>(ApplicationDependencies{
        .runLoop = m_desktop.runLoop,
        .serialQueues = serialQueues,
        .displayLinks = displayLinks,
        .workspace = workspace,
        .screens = screens,
        .accessibility = accessibility,
        .windowInfoSource = windowInfoSource,
        .windowServerCalls = windowServerCalls,
        .toolkitWindows = toolkitWindows,
        .input = input,
        .application = application,
        .alerts = alerts,
        .statusItems = statusItems,
        .formWindows = formWindows,
        .hotkeys = hotkeys,
        .loginItems = loginItems,
        .updaterFramework = updaterFramework,
        .panels = panels,
        .applicationCatalog = applicationCatalog,
        .bundle = bundle,
        .userDefaults = userDefaults,
        .processes = processes,
        .log = log,
        .videoLinks = displayLinks.makesLinksFromScreens() ? nullptr : &displayLinks,
    });
}

SimSession::~SimSession()
{
    m_entry.reset();
    m_desktop.runLoop.discardPending(); // events refer to adapters, which are destroyed before the loop
}

const SimToolkitWindow* SimSession::toolkitWindow(std::int64_t number) const
{
    const auto& all = toolkitWindows.all();
    const auto found = std::ranges::find(all, number, &SimToolkitWindow::windowNumber);
    return found == all.end() ? nullptr : *found;
}

} // namespace haloric
