// One run of the program on a simulated desktop: the desktop, every adapter, and the program itself from its entry on.
// Other adapters may stand between the program and these (SimProgramAdapters).
#pragma once

#include "app/AppDelegate.h"
#include "app/HaloricProgram.h"
#include "hosts/sim/form/SimFormWindows.h"
#include "hosts/sim/input/SimHotkeys.h"
#include "hosts/sim/input/SimInputMonitors.h"
#include "hosts/sim/overlay/SimToolkitWindows.h"
#include "hosts/sim/refresh/SimDisplayLinks.h"
#include "hosts/sim/refresh/SimScreens.h"
#include "hosts/sim/scenario/session/SimProgramAdapters.h"
#include "hosts/sim/scenario/session/SimSetup.h"
#include "hosts/sim/shell/SimAlerts.h"
#include "hosts/sim/shell/SimApplication.h"
#include "hosts/sim/shell/SimBundle.h"
#include "hosts/sim/shell/SimLog.h"
#include "hosts/sim/shell/SimLoginItemService.h"
#include "hosts/sim/shell/SimPanels.h"
#include "hosts/sim/shell/SimProcesses.h"
#include "hosts/sim/shell/SimStatusItems.h"
#include "hosts/sim/shell/SimUpdaterFramework.h"
#include "hosts/sim/shell/SimUserDefaults.h"
#include "hosts/sim/windows/SimAccessibility.h"
#include "hosts/sim/windows/SimApplicationCatalog.h"
#include "hosts/sim/windows/SimWindowInfoSource.h"
#include "hosts/sim/windows/SimWindowServerCalls.h"
#include "hosts/sim/windows/SimWorkspace.h"

#include <memory>
#include <string_view>

namespace haloric {

class SimSession {
    // Before the adapters, which use it.
    SimDesktop m_desktop;

public:
    explicit SimSession(const SimSetup& setup, const SimAdapterFactory& makeAdapters = nullptr);
    ~SimSession();

    // Starts the program: it shows the onboarding alert if it must, and tracks from the next turn of the loop on.
    void start() { m_entry->run(); }

    SimDesktop& desktop() { return m_desktop; }
    const SimDesktop& desktop() const { return m_desktop; }
    SettingsStore& settingsStore() { return m_entry->settingsStore(); }

    // The user opens the application again while it runs.
    void reopen() { application.reopen(); }

    // The user uses a control of a form on screen, as SimFormWindows::change.
    bool changeControl(std::string_view id, const SimFormWindows::Value& value)
    {
        return m_adapters->changeControl(id, value);
    }

    // Null before the start.
    const OverlayController* overlays() const { return m_entry->delegate().overlays(); }
    const FocusTracker* tracker() const { return m_entry->delegate().tracker(); }

    // The adapters below.
    ApplicationDependencies ownDependencies();

    SimSerialQueues serialQueues{m_desktop.runLoop};
    SimScreens screens{m_desktop};
    SimWorkspace workspace{m_desktop};
    SimAccessibility accessibility{m_desktop, serialQueues};
    SimWindowInfoSource windowInfoSource{m_desktop};
    SimWindowServerCalls windowServerCalls{m_desktop};
    SimToolkitWindows toolkitWindows{m_desktop};
    SimInputMonitors input{m_desktop};
    SimDisplayLinks displayLinks{m_desktop};
    SimApplication application{m_desktop};
    SimAlerts alerts{m_desktop};
    SimStatusItems statusItems{m_desktop};
    SimFormWindows formWindows{m_desktop};
    SimHotkeys hotkeys{m_desktop};
    SimLoginItemService loginItems{m_desktop};
    SimUpdaterFramework updaterFramework{m_desktop};
    SimPanels panels{m_desktop};
    SimApplicationCatalog applicationCatalog{m_desktop};
    SimBundle bundle;
    SimUserDefaults userDefaults{m_desktop};
    SimProcesses processes{m_desktop};
    SimLog log{m_desktop};

private:
    class OwnAdapters;

    std::unique_ptr<SimProgramAdapters> m_adapters;
    std::unique_ptr<HaloricProgram> m_entry;
};

} // namespace haloric
