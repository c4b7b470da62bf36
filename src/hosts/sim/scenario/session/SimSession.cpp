#include "hosts/sim/scenario/session/SimSession.h"

#include <utility>

namespace haloric {

// The simulated desktop's own.
class SimSession::OwnAdapters final : public SimProgramAdapters {
public:
    explicit OwnAdapters(SimSession& session) : m_session(session) {}

    ApplicationDependencies dependencies() override { return m_session.ownDependencies(); }

    bool changeControl(std::string_view id, const SimFormWindows::Value& value) override
    {
        return m_session.formWindows.change(id, value);
    }

private:
    SimSession& m_session;
};

SimSession::SimSession(const SimSetup& setup, const SimAdapterFactory& makeAdapters)
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

    m_adapters = makeAdapters ? makeAdapters(*this) : std::make_unique<OwnAdapters>(*this);
    m_entry = std::make_unique<HaloricProgram>(m_adapters->dependencies());
}

SimSession::~SimSession()
{
    m_entry.reset();
    m_desktop.runLoop.discardPending(); // events refer to adapters, which are destroyed before the loop
    m_adapters.reset();
    m_desktop.runLoop.discardPending();
}

ApplicationDependencies SimSession::ownDependencies()
{
    return {
        .runLoop = desktop().runLoop,
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
    };
}

} // namespace haloric
