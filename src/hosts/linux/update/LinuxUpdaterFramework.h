// Checks an appcast for a newer version, when the user asks and by a schedule, and reports it in alerts beside the
// program's other windows. It downloads and installs nothing; the alert leads to the web page. Main thread.
#pragma once

#include "foundation/Subscription.h"
#include "foundation/Time.h"
#include "foundation/WeakAnchor.h"
#include "hosts/linux/update/UpdateOffer.h"
#include "hosts/linux/update/UpdaterDependencies.h"
#include "platform/UpdaterFramework.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace haloric {

class Bundle;
class RunLoop;
class UserDefaults;
class Workspace;

// While a check that the user asked for runs, the user sees that and can cancel it.
class LinuxUpdaterController final : public UpdaterController {
public:
    static constexpr std::string_view kLastCheckKey = "Haloric.lastUpdateCheck";    // the time of the last success
    static constexpr std::string_view kSkippedVersionKey = "Haloric.skippedUpdate"; // no longer offered unasked
    static constexpr Seconds kFirstLook{60};                                        // after launch
    static constexpr Seconds kLookInterval{3600};  // between two tests whether a check is due
    static constexpr Seconds kRetryInterval{3600}; // after a check that failed

    // Everything outlives the controller.
    struct Dependencies {
        RunLoop& runLoop;
        AppcastSource& source;
        UpdateProgress& progress;
        ModelessAlerts& alerts;
        Workspace& workspace;
        UserDefaults& userDefaults;
        std::function<void(Task)> runInBackground; // runs the work on another thread; never inside the work before
    };

    // Checks that the user has not asked for.
    struct Schedule {
        bool isOn = true;
        Seconds interval{86400}; // wall clock time between successful checks, also across restarts; an hour at least
    };

    struct Installed {
        std::string feed;           // URL
        std::string version;        // for comparison
        std::string displayVersion; // for display
    };

    LinuxUpdaterController(const Dependencies& dependencies, Installed installed)
        : LinuxUpdaterController(dependencies, std::move(installed), Schedule())
    {
    }
    LinuxUpdaterController(const Dependencies& dependencies, Installed installed, Schedule schedule);

    // Starts the schedule. Its checks show something only if there is an update that the user has not skipped.
    void start();

    void checkForUpdates() override;

private:
    struct Outcome {
        std::string error; // one sentence for the user; empty on success
        std::optional<UpdateOffer> offer;
    };

    static Outcome outcomeOf(const AppcastDownload& download, const std::string& version);

    void checkIfDue();
    void check();
    void cancel();
    void receive(const AppcastDownload& download);
    void report(int check, const Outcome& outcome);
    void retryLater();
    void retry();
    bool isSkipped(const UpdateOffer& offer) const;
    void show(const AlertModel& alert, std::vector<Task> answers = {});
    void showOffer(const UpdateOffer& offer);

    Dependencies m_dependencies;
    Installed m_installed;
    Schedule m_schedule;
    bool m_isChecking = false;
    int m_lastCheck = 0; // counts the checks, to drop the outcome of a cancelled one
    bool m_userAsked = false;
    Subscription m_firstLook;
    Subscription m_looks;
    Subscription m_retry;    // after a check that failed
    Subscription m_alert;    // while an alert is open
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
    // or without both versions. A false SUEnableAutomaticChecks switches the schedule off; SUScheduledCheckInterval is
    // its interval in seconds.
    std::shared_ptr<UpdaterController> makeStandardController(bool startingUpdater, UpdaterDelegate& delegate) override;

private:
    LinuxUpdaterController::Dependencies m_dependencies;
    const Bundle& m_bundle;
};

} // namespace haloric
