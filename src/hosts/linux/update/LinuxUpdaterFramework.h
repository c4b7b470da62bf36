// Checks an appcast for a newer version, when the user asks and once a day, and reports it in alerts. It downloads and
// installs nothing; the alert leads to the web page. Main thread.
#pragma once

#include "foundation/Subscription.h"
#include "foundation/Time.h"
#include "foundation/WeakAnchor.h"
#include "hosts/linux/update/UpdaterDependencies.h"
#include "platform/Alerts.h"
#include "platform/UpdaterFramework.h"

#include <string>
#include <string_view>

namespace haloric {

class Bundle;
class RunLoop;
class UserDefaults;
class Workspace;

// While a check that the user asked for runs, the user sees that and can cancel it.
class LinuxUpdaterController final : public UpdaterController {
public:
    static constexpr std::string_view kLastCheckKey = "Haloric.lastUpdateCheck";
    static constexpr Seconds kFirstLook{60};        // after launch
    static constexpr Seconds kLookInterval{3600};   // between two tests whether a check is due
    static constexpr Seconds kCheckInterval{86400}; // wall clock time between checks, also across restarts

    // Everything outlives the controller.
    struct Dependencies {
        RunLoop& runLoop;
        AppcastSource& source;
        UpdateProgress& progress;
        Alerts& alerts;
        Workspace& workspace;
        UserDefaults& userDefaults;
    };

    struct Installed {
        std::string feed;           // URL
        std::string version;        // for comparison
        std::string displayVersion; // for display
    };

    LinuxUpdaterController(const Dependencies& dependencies, Installed installed);

    // Starts the daily checks, which show something only if there is an update.
    void start();

    void checkForUpdates() override;

private:
    void checkIfDue();
    void check();
    void cancel();
    void receive(const AppcastDownload& download);
    void report(const AppcastDownload& download, bool userAsked);
    void show(const AlertModel& alert, const std::string& page);

    Dependencies m_dependencies;
    Installed m_installed;
    bool m_userAsked = false;
    bool m_isShowing = false;
    Subscription m_firstLook;
    Subscription m_looks;
    Subscription m_fetch;    // while a download runs
    Subscription m_progress; // while the user waits for the check
    WeakAnchor<LinuxUpdaterController> m_weakAnchor{*this};
};

class LinuxUpdaterFramework final : public UpdaterFramework {
public:
    // Everything outlives the framework and its controllers.
    LinuxUpdaterFramework(const LinuxUpdaterController::Dependencies& dependencies, const Bundle& bundle)
        : m_dependencies(dependencies),
          m_bundle(bundle)
    {
    }

    // Reads the information dictionary: the feed from SUFeedURL, the version for comparison from CFBundleVersion, the
    // one for display from CFBundleShortVersionString. A missing version is replaced by the other. Null without a feed
    // or without both versions.
    std::shared_ptr<UpdaterController> makeStandardController(bool startingUpdater, UpdaterDelegate& delegate) override;

private:
    LinuxUpdaterController::Dependencies m_dependencies;
    const Bundle& m_bundle;
};

} // namespace haloric
