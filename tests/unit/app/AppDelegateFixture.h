// An application delegate, with everything that it needs as fakes.
#pragma once

#include "app/AppDelegate.h"
#include "menubar/HotkeyManager.h"
#include "menubar/UpdaterManager.h"
#include "settings/LaunchAtLogin.h"
#include "unit/app/ApplicationFixture.h"

#include <memory>

namespace haloric {

class AppDelegateFixture : public ApplicationFixture {
protected:
    AppDelegateFixture() { makeDelegate(); }

    void TearDown() override
    {
        delegate.reset();
        ApplicationFixture::TearDown();
    }

    void makeDelegate()
    {
        const OverlayDependencies overlay{runLoop, workspace, screens, toolkit, input, windowServer, windowList, log};
        const FocusTrackerDependencies tracking{runLoop,       queues,     links, workspace,   screens,
                                                accessibility, windowInfo, input, application, windowServer};
        const SettingsViewDependencies settingsView{bundle, catalog, loginItems,  accessibility, workspace,
                                                    panels, alerts,  application, nullptr};
        const StatusBarDependencies statusBar{runLoop,
                                              statusItems,
                                              formWindows,
                                              panels,
                                              alerts,
                                              application,
                                              accessibility,
                                              workspace,
                                              bundle,
                                              launchAtLogin,
                                              [this]() -> UpdaterManager& { return updaterManager; },
                                              settingsView};
        delegate =
            std::make_unique<AppDelegate>(AppDelegateDependencies{runLoop, workspace, accessibility, application,
                                                                  alerts, hotkeyManager, overlay, tracking, statusBar},
                                          store);
    }

    void launch() { delegate->applicationDidFinishLaunching(); }

    SharedWindowServer windowServer{library, processes, runLoop, log};
    WindowList windowList{windowInfo, screens, workspace, application.pid};
    SettingsStore store{defaults};
    HotkeyManager hotkeyManager{hotkeys};
    LaunchAtLogin launchAtLogin{bundle, loginItems};
    UpdaterManager updaterManager{bundle, updaterFramework};
    std::unique_ptr<AppDelegate> delegate;
};

} // namespace haloric
