// Looks whether there is a newer version, when the user asks and once a day by itself, and tells of it in alerts. A
// user who asked sees that it looks, and can end that. It downloads and installs nothing: the user is led to the web
// page. Main thread.
#pragma once

#include "foundation/Subscription.h"
#include "foundation/Time.h"
#include "foundation/WeakAnchor.h"
#include "hosts/linux/update/AppcastSource.h"
#include "hosts/linux/update/UpdateProgress.h"
#include "platform/Alerts.h"
#include "platform/UpdaterFramework.h"

#include <string>
#include <string_view>

namespace haloric {

class RunLoop;
class UserDefaults;
class Workspace;

class LinuxUpdaterController final : public UpdaterController {
public:
    static constexpr std::string_view kLastCheckKey = "Haloric.lastUpdateCheck";
    static constexpr Seconds kFirstLook{60};        // after launch
    static constexpr Seconds kLookInterval{3600};   // whether a day is over
    static constexpr Seconds kCheckInterval{86400}; // by the calendar clock, over restarts

    // Everything outlives the controller.
    struct Platform {
        RunLoop& runLoop;
        AppcastSource& source;
        UpdateProgress& progress;
        Alerts& alerts;
        Workspace& workspace;
        UserDefaults& userDefaults;
    };

    struct Installed {
        std::string feed;           // its address
        std::string version;        // to be compared
        std::string displayVersion; // to be shown
    };

    LinuxUpdaterController(const Platform& platform, Installed installed);

    // From now on it looks by itself as well; then it shows something only when there is an update.
    void start();

    void checkForUpdates() override;

private:
    void lookWhetherDue();
    void check();
    void cancel();
    void receive(const AppcastDownload& download);
    void tell(const AppcastDownload& download, bool userAsked);
    void show(const AlertModel& alert, const std::string& page);

    Platform m_platform;
    Installed m_installed;
    bool m_userAsked = false;
    bool m_isShowing = false;
    Subscription m_firstLook;
    Subscription m_looks;
    Subscription m_fetch;    // while one is under way
    Subscription m_progress; // while a user waits for it
    WeakAnchor<LinuxUpdaterController> m_weakAnchor{*this};
};

} // namespace haloric
