// The program from its first line to its event loop, and the one place that makes the instances of which there is
// one a process. The host's `main` owns it and keeps it until the program ends. Main thread.
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

class EntrySequence {
public:
    // Makes the shared instances and the delegate. Everything in `platform` outlives the sequence.
    explicit EntrySequence(const ApplicationDependencies& platform);
    ~EntrySequence();
    EntrySequence(const EntrySequence&) = delete;
    EntrySequence& operator=(const EntrySequence&) = delete;

    // Makes the application a menu-bar accessory with this delegate and runs its event loop. Where the host's loop
    // is turned by its owner it returns at once, and the program lives on until the sequence is destroyed.
    void run();

    AppDelegate& delegate() { return *m_delegate; }
    SettingsStore& settingsStore() { return m_settingsStore; }
    HotkeyManager& hotkeyManager() { return m_hotkeyManager; }

private:
    std::unique_ptr<AppDelegate> makeDelegate(const ApplicationDependencies& platform);
    OverlayDependencies overlayPlatform(const ApplicationDependencies& platform);
    FocusTrackerDependencies trackingPlatform(const ApplicationDependencies& platform);
    StatusBarDependencies statusBarPlatform(const ApplicationDependencies& platform);

    Application& m_application;
    SettingsStore m_settingsStore;
    SharedWindowServer m_windowServer;
    WindowList m_windowList;
    HotkeyManager m_hotkeyManager;
    LaunchAtLogin m_launchAtLogin;
    std::optional<UpdaterManager> m_updaterManager; // made at its first use
    std::unique_ptr<AppDelegate> m_delegate;
};

} // namespace haloric
