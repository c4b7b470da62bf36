// Hotkeys, the login item, the updater and the catalogue of applications of the X11 host under the contract tests.
#pragma once

#include "contract/shell/ContractShell.h"
#include "contract/shell/x11/QtUser.h"
#include "hosts/linux/files/LinuxLoginItemService.h"
#include "hosts/linux/files/LinuxUserDefaults.h"
#include "hosts/linux/shell/QtAlerts.h"
#include "hosts/linux/shell/QtUpdateProgress.h"
#include "hosts/linux/update/BackgroundThread.h"
#include "hosts/linux/update/LinuxUpdaterFramework.h"
#include "hosts/posix/PosixProcesses.h"
#include "hosts/x11/X11Desktop.h"
#include "hosts/x11/input/X11Hotkeys.h"
#include "platform/Bundle.h"

#include <map>

namespace haloric {

// A feed that cannot be reached: the check ends with a message.
class ContractFeed final : public AppcastSource, public Bundle {
public:
    explicit ContractFeed(RunLoop& runLoop) : m_runLoop(runLoop) {}

    Subscription fetch(const std::string& address, std::function<void(const AppcastDownload&)> done) override;

    // Bundle
    std::string path() const override { return "/nowhere"; }
    std::optional<std::string> identifier() const override { return std::nullopt; }
    bool hasInfo(std::string_view key) const override { return infoString(key).has_value(); }
    std::optional<std::string> infoString(std::string_view key) const override;

private:
    RunLoop& m_runLoop;
};

class X11ContractServices final : public ContractServices {
public:
    X11ContractServices(QtUser& user, X11Connection& connection, LinuxRunLoop& runLoop, X11Desktop& desktop,
                        QtForeground& foreground);

    Hotkeys& hotkeys() override { return m_hotkeys; }
    LoginItemService& loginItems() override { return m_loginItems; }
    UpdaterFramework& updaterFramework() override { return m_updaterFramework; }
    ApplicationCatalog& applicationCatalog() override { return m_desktop.catalog; }
    void pressKeys(const Hotkey& combination) override;
    bool startsAtLogin() override;
    bool confirmsUpdateResult() override;
    std::string install(const std::string& bundleIdentifier, const std::string& name) override;
    void start(const std::string& bundleIdentifier) override;

private:
    QtUser& m_user;
    X11Desktop& m_desktop;
    PosixProcesses m_processes;
    X11Hotkeys m_hotkeys;
    LinuxLoginItemService m_loginItems;
    LinuxUserDefaults m_userDefaults;
    ContractFeed m_feed;
    QtAlerts m_alerts;
    QtUpdateProgress m_progress;
    BackgroundThread m_background;
    LinuxUpdaterFramework m_updaterFramework;
    std::map<std::string, std::unique_ptr<TestClient>> m_running; // by identifier
};

} // namespace haloric
