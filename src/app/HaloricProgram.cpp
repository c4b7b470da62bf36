#include "app/HaloricProgram.h"

#include "app/AppControl.h"
#include "app/AppDelegate.h"
#include "platform/Application.h"

namespace haloric {

HaloricProgram::HaloricProgram(const ApplicationDependencies& platform)
    : m_application(platform.application),
      m_settingsStore(platform.userDefaults),
      m_windowServer(platform.windowServerCalls, platform.processes, platform.runLoop, platform.log),
      m_windowList(platform.windowInfoSource, platform.screens, platform.workspace, platform.application.processID()),
      m_hotkeyManager(platform.hotkeys),
      m_launchAtLogin(platform.bundle, platform.loginItems),
      m_delegate(makeDelegate(platform))
{
}

HaloricProgram::~HaloricProgram() = default;

void HaloricProgram::run()
{
    m_application.setDelegate(m_delegate.get());
    m_application.setActivationPolicy(ActivationPolicy::accessory);
    m_application.run();
}

std::unique_ptr<AppDelegate> HaloricProgram::makeDelegate(const ApplicationDependencies& platform)
{
    const AppDelegateDependencies delegate{
        .runLoop = platform.runLoop,
        .workspace = platform.workspace,
        .accessibility = platform.accessibility,
        .application = platform.application,
        .alerts = platform.alerts,
        .hotkeyManager = m_hotkeyManager,
        .overlay = overlayDependencies(platform),
        .tracking = trackerDependencies(platform),
        .statusBar = statusBarDependencies(platform),
        .onboardingAlert = platform.onboardingAlert,
    };
    return std::make_unique<AppDelegate>(delegate, m_settingsStore);
}

OverlayDependencies HaloricProgram::overlayDependencies(const ApplicationDependencies& platform)
{
    return {
        .runLoop = platform.runLoop,
        .workspace = platform.workspace,
        .screens = platform.screens,
        .toolkitWindows = platform.toolkitWindows,
        .input = platform.input,
        .windowServer = m_windowServer,
        .windowList = m_windowList,
        .log = platform.log,
    };
}

FocusTrackerDependencies HaloricProgram::trackerDependencies(const ApplicationDependencies& platform)
{
    return {
        .runLoop = platform.runLoop,
        .serialQueues = platform.serialQueues,
        .displayLinks = platform.displayLinks,
        .workspace = platform.workspace,
        .screens = platform.screens,
        .accessibility = platform.accessibility,
        .windowInfo = platform.windowInfoSource,
        .input = platform.input,
        .application = platform.application,
        .windowServer = m_windowServer,
        .videoLinks = platform.videoLinks,
    };
}

StatusBarDependencies HaloricProgram::statusBarDependencies(const ApplicationDependencies& platform)
{
    const auto restart = [&bundle = platform.bundle, &processes = platform.processes,
                          &application = platform.application] { AppControl::restart(bundle, processes, application); };
    const auto updaterManager = [this, &bundle = platform.bundle,
                                 &framework = platform.updaterFramework]() -> UpdaterManager& {
        return m_updaterManager ? *m_updaterManager : m_updaterManager.emplace(bundle, framework);
    };
    const SettingsViewDependencies settingsView{
        .bundle = platform.bundle,
        .applications = platform.applicationCatalog,
        .loginItems = platform.loginItems,
        .accessibility = platform.accessibility,
        .workspace = platform.workspace,
        .panels = platform.panels,
        .alerts = platform.alerts,
        .application = platform.application,
        .restart = restart,
        .texts = platform.texts,
    };
    return {
        .runLoop = platform.runLoop,
        .statusItems = platform.statusItems,
        .formWindows = platform.formWindows,
        .panels = platform.panels,
        .alerts = platform.alerts,
        .application = platform.application,
        .accessibility = platform.accessibility,
        .workspace = platform.workspace,
        .bundle = platform.bundle,
        .launchAtLogin = m_launchAtLogin,
        .updaterManager = updaterManager,
        .settingsView = settingsView,
    };
}

} // namespace haloric
