#include "macos/histories/MacSessionAdapters.h"

#include "hosts/macos/base/MacBundle.h"
#include "hosts/macos/base/MacLog.h"
#include "hosts/macos/base/MacProcesses.h"
#include "hosts/macos/base/MacUserDefaults.h"
#include "hosts/macos/form/MacFormWindows.h"
#include "hosts/macos/input/MacHotkeys.h"
#include "hosts/macos/input/MacInputMonitors.h"
#include "hosts/macos/loop/MacRunLoop.h"
#include "hosts/macos/loop/MacSerialQueues.h"
#include "hosts/macos/overlay/MacToolkitWindows.h"
#include "hosts/macos/refresh/MacDisplayLinks.h"
#include "hosts/macos/refresh/MacScreens.h"
#include "hosts/macos/refresh/MacVideoLinks.h"
#include "hosts/macos/shell/MacAlerts.h"
#include "hosts/macos/shell/MacApplication.h"
#include "hosts/macos/shell/MacLoginItemService.h"
#include "hosts/macos/shell/MacPanels.h"
#include "hosts/macos/shell/MacStatusItems.h"
#include "hosts/macos/windows/MacAccessibility.h"
#include "hosts/macos/windows/MacApplicationCatalog.h"
#include "hosts/macos/windows/MacWindowInfoSource.h"
#include "hosts/macos/windows/MacWorkspace.h"
#include "hosts/posix/PosixLibrary.h"
#include "hosts/sim/scenario/session/SimSession.h"
#include "macos/histories/FormUser.h"
#include "macos/histories/SimServerWindows.h"
#include "windowserver/LoadedWindowServerCalls.h"
#include "world/Backing.h"

#import <CoreFoundation/CoreFoundation.h>

#include <cstdlib>

extern "C" void* objc_autoreleasePoolPush();
extern "C" void objc_autoreleasePoolPop(void* pool);

namespace haloric {
namespace {

// Puts the session behind the stand-ins for as long as it lives.
class SessionBehind {
public:
    explicit SessionBehind(SimSession& session)
        : m_adapters(session.ownDependencies()),
          m_windows(session.desktop()),
          m_backing{.adapters = m_adapters,
                    .videoLinks = session.displayLinks,
                    .windows = m_windows,
                    .environment = session.processes.environment,
                    .information = session.bundle.information,
                    .isRunning = [&session](ProcessID pid) { return session.desktop().model.app(pid) != nullptr; },
                    .activate = [&session](ProcessID pid) { return activate(session.desktop(), pid); }}
    {
        ::setenv("SUBSTITUTE_MACOS_VERSION", std::to_string(session.desktop().systemVersion).c_str(), 1);
        substitute::setBacking(&m_backing);
    }
    static bool activate(SimDesktop& desktop, ProcessID pid)
    {
        SimApp* app = desktop.model.app(pid);
        if (app)
            desktop.applications.activate(*app);
        return app != nullptr;
    }

    ~SessionBehind()
    {
        objc_autoreleasePoolPop(m_pool); // what it holds may refer to the session
        substitute::setBacking(nullptr);
    }
    SessionBehind(const SessionBehind&) = delete;
    SessionBehind& operator=(const SessionBehind&) = delete;

private:
    const ApplicationDependencies m_adapters;
    SimServerWindows m_windows;
    substitute::Backing m_backing;
    void* m_pool = objc_autoreleasePoolPush();
};

class MacSessionAdapters final : public SimProgramAdapters {
public:
    explicit MacSessionAdapters(SimSession& session) : m_session(session), m_behind(session) {}

    ApplicationDependencies dependencies() override
    {
        return {
            .runLoop = m_runLoop,
            .serialQueues = m_serialQueues,
            .displayLinks = m_displayLinks,
            .workspace = m_workspace,
            .screens = m_screens,
            .accessibility = m_accessibility,
            .windowInfoSource = m_windowInfoSource,
            .windowServerCalls = m_windowServerCalls,
            .toolkitWindows = m_toolkitWindows,
            .input = m_input,
            .application = m_application,
            .alerts = m_alerts,
            .statusItems = m_statusItems,
            .formWindows = m_formUser,
            .hotkeys = m_hotkeys,
            .loginItems = m_loginItems,
            .updaterFramework = m_session.updaterFramework, // the framework has no stand-in
            .panels = m_panels,
            .applicationCatalog = m_applicationCatalog,
            .bundle = m_bundle,
            .userDefaults = m_userDefaults,
            .processes = m_processes,
            .log = m_log,
            .videoLinks = MacDisplayLinks::areAvailable() ? nullptr : &m_videoLinks,
        };
    }

    bool changeControl(std::string_view id, const SimFormWindows::Value& value) override
    {
        @autoreleasepool {
            return m_formUser.change(id, value);
        }
    }

private:
    SimSession& m_session;
    SessionBehind m_behind;
    MacApplication m_application;
    MacRunLoop m_runLoop;
    MacSerialQueues m_serialQueues;
    MacDisplayLinks m_displayLinks;
    MacVideoLinks m_videoLinks;
    MacWorkspace m_workspace;
    MacScreens m_screens;
    MacAccessibility m_accessibility;
    MacWindowInfoSource m_windowInfoSource;
    PosixLibrary m_windowServerLibrary{CFRelease};
    LoadedWindowServerCalls m_windowServerCalls{m_windowServerLibrary};
    MacToolkitWindows m_toolkitWindows;
    MacInputMonitors m_input;
    MacAlerts m_alerts;
    MacStatusItems m_statusItems;
    MacFormWindows m_formWindows;
    FormUser m_formUser{m_formWindows};
    MacHotkeys m_hotkeys;
    MacLoginItemService m_loginItems;
    MacPanels m_panels;
    MacApplicationCatalog m_applicationCatalog;
    MacBundle m_bundle;
    MacUserDefaults m_userDefaults;
    MacProcesses m_processes;
    MacLog m_log;
};

} // namespace

std::unique_ptr<SimProgramAdapters> makeMacSessionAdapters(SimSession& session)
{
    return std::make_unique<MacSessionAdapters>(session);
}

} // namespace haloric
