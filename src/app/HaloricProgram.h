// Makes and owns everything that lives as long as the process, and runs the event loop. The host's `main` owns it
// until the program ends. Main thread.
#pragma once

#include "app/ApplicationDependencies.h"
#include "menubar/HotkeyManager.h"
#include "menubar/UpdaterManager.h"
#include "settings/LaunchAtLogin.h"
#include "settings/SettingsStore.h"
#include "windowserver/SharedWindowServer.h"
#include "windowserver/WindowList.h"

#include <memory>
#include <optional>

namespace haloric {

class AppDelegate;
struct FocusTrackerDependencies;
struct OverlayDependencies;
struct StatusBarDependencies;

class HaloricProgram {
public:
    // Makes the shared instances and the delegate. Everything in `platform` outlives the program.
    explicit HaloricProgram(const ApplicationDependencies& platform);
    ~HaloricProgram();
    HaloricProgram(const HaloricProgram&) = delete;
    HaloricProgram& operator=(const HaloricProgram&) = delete;

    // Makes the application a menu-bar accessory with this delegate and runs its event loop. With a host
    // whose loop is run from outside it returns at once; the program then runs until it is destroyed.
    void run();

    AppDelegate& delegate() { return *m_delegate; }
    SettingsStore& settingsStore() { return m_settingsStore; }
    HotkeyManager& hotkeyManager() { return m_hotkeyManager; }

private:
    std::unique_ptr<AppDelegate> makeDelegate(const ApplicationDependencies& platform);
    OverlayDependencies overlayDependencies(const ApplicationDependencies& platform);
    FocusTrackerDependencies trackerDependencies(const ApplicationDependencies& platform);
    StatusBarDependencies statusBarDependencies(const ApplicationDependencies& platform);

    Application& m_application;
    SettingsStore m_settingsStore;
    SharedWindowServer m_windowServer;
    WindowList m_windowList;
    HotkeyManager m_hotkeyManager;
    LaunchAtLogin m_launchAtLogin;
    std::optional<UpdaterManager> m_updaterManager; // made at first use
    std::unique_ptr<AppDelegate> m_delegate;
};

} // namespace haloric
