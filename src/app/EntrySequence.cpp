#include "app/EntrySequence.h"

#include "app/AppDelegate.h"
#include "platform/Application.h"

namespace haloric {

EntrySequence::EntrySequence(const ApplicationPlatform& platform)
    : m_application(platform.application),
      m_settingsStore(platform.userDefaults),
      m_windowServer(platform.windowServerLibrary, platform.processes, platform.runLoop, platform.log),
      m_windowList(platform.windowInfoSource, platform.screens, platform.workspace, platform.application.processID()),
      m_delegate(makeDelegate(platform))
{
}

EntrySequence::~EntrySequence() = default;

void EntrySequence::run()
{
    m_application.setDelegate(m_delegate.get());
    m_application.setActivationPolicy(ActivationPolicy::accessory);
    m_application.run();
}

std::unique_ptr<AppDelegate> EntrySequence::makeDelegate(const ApplicationPlatform& platform)
{
    const OverlayPlatform overlay{
        .runLoop = platform.runLoop,
        .workspace = platform.workspace,
        .screens = platform.screens,
        .toolkitWindows = platform.toolkitWindows,
        .input = platform.input,
        .windowServer = m_windowServer,
        .windowList = m_windowList,
        .log = platform.log,
    };
    const FocusTrackerPlatform tracking{
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
    };
    const AppDelegatePlatform delegate{
        .runLoop = platform.runLoop,
        .workspace = platform.workspace,
        .accessibility = platform.accessibility,
        .application = platform.application,
        .alerts = platform.alerts,
        .overlay = overlay,
        .tracking = tracking,
    };
    return std::make_unique<AppDelegate>(delegate, m_settingsStore);
}

} // namespace haloric
