#include "hosts/linux/update/LinuxUpdaterFramework.h"

#include "platform/Bundle.h"
#include "platform/RunLoop.h"
#include "platform/UserDefaults.h"
#include "platform/Workspace.h"

#include <algorithm>
#include <charconv>

namespace haloric {
namespace {

constexpr Seconds kTolerance{300};

AlertModel offerAlert(const UpdateOffer& offer, const std::string& installed)
{
    AlertModel alert{.messageText = "A new version of Haloric is available.",
                     .informativeText = "Haloric " + offer.version + " is available. You have " + installed + ".",
                     .style = AlertStyle::informational,
                     .buttons = {"Open Download Page", "Skip This Version", "Later"}};
    if (!offer.notes.empty())
        alert.informativeText += "\n\n" + offer.notes;
    if (offer.page.empty())
        alert.buttons.erase(alert.buttons.begin());
    return alert;
}

AlertModel currentAlert(const std::string& installed)
{
    return {.messageText = "You’re up to date.",
            .informativeText = "Haloric " + installed + " is the newest version available.",
            .style = AlertStyle::informational,
            .buttons = {"OK"}};
}

AlertModel failureAlert(const std::string& error)
{
    return {.messageText = "The check for updates failed.",
            .informativeText = error,
            .style = AlertStyle::warning,
            .buttons = {"OK"}};
}

std::optional<Seconds> parseTime(const std::optional<std::string>& text)
{
    long long seconds = 0;
    if (!text || std::from_chars(text->data(), text->data() + text->size(), seconds).ec != std::errc())
        return {};
    return Seconds(static_cast<double>(seconds));
}

} // namespace

LinuxUpdaterController::LinuxUpdaterController(const Dependencies& dependencies, Installed installed, Schedule schedule)
    : m_dependencies(dependencies),
      m_installed(std::move(installed)),
      m_schedule(schedule)
{
    m_schedule.interval = std::max(m_schedule.interval, kLookInterval);
}

void LinuxUpdaterController::start()
{
    if (!m_schedule.isOn)
        return;
    m_firstLook = m_dependencies.runLoop.scheduleOnce(kFirstLook, [this] { checkIfDue(); });
    m_looks = m_dependencies.runLoop.scheduleRepeating(kLookInterval, kTolerance, [this] { checkIfDue(); });
}

void LinuxUpdaterController::checkForUpdates()
{
    m_alert.reset(); // of an earlier check
    m_userAsked = true;
    m_progress.reset(); // showing it again brings it to the front
    m_progress = m_dependencies.progress.show([this] { cancel(); });
    check();
}

void LinuxUpdaterController::cancel()
{
    ++m_lastCheck;
    m_isChecking = false;
    m_userAsked = false;
    m_fetch.reset();
    m_progress.reset();
}

void LinuxUpdaterController::checkIfDue()
{
    const Seconds now = m_dependencies.runLoop.wallClock();
    const auto last = parseTime(m_dependencies.userDefaults.data(kLastCheckKey));
    // `last` is in the future if the clock was set back. A check may be early by half the time to the next look, as it
    // would be late otherwise.
    const bool isDue = !last || *last > now || now - *last + kLookInterval / 2 >= m_schedule.interval;
    if (isDue && !m_alert && !m_retry)
        check();
}

void LinuxUpdaterController::check()
{
    if (m_isChecking)
        return; // its outcome serves both requests
    m_isChecking = true;
    ++m_lastCheck;
    m_fetch =
        m_dependencies.source.fetch(m_installed.feed, [this](const AppcastDownload& download) { receive(download); });
}

void LinuxUpdaterController::receive(const AppcastDownload& download)
{
    m_dependencies.runInBackground([weak = m_weakAnchor.ref(), &runLoop = m_dependencies.runLoop, check = m_lastCheck,
                                    version = m_installed.version, download] {
        runLoop.post([weak, check, outcome = outcomeOf(download, version)] {
            if (LinuxUpdaterController* self = weak.get())
                self->report(check, outcome);
        });
    });
    m_fetch.reset();
}

LinuxUpdaterController::Outcome LinuxUpdaterController::outcomeOf(const AppcastDownload& download,
                                                                  const std::string& version)
{
    if (!download.error.empty())
        return {.error = download.error, .offer = {}};
    const Appcast appcast = Appcast::parse(download.bytes);
    return {.error = appcast.error, .offer = UpdateOffer::find(appcast, version)};
}

void LinuxUpdaterController::report(int check, const Outcome& outcome)
{
    if (check != m_lastCheck)
        return; // cancelled
    m_isChecking = false;
    m_progress.reset();
    const bool userAsked = std::exchange(m_userAsked, false);
    if (!outcome.error.empty()) {
        retryLater();
        if (userAsked)
            show(failureAlert(outcome.error));
        return;
    }
    m_retry.reset();
    const auto now = static_cast<long long>(m_dependencies.runLoop.wallClock().count());
    m_dependencies.userDefaults.setData(kLastCheckKey, std::to_string(now));
    if (outcome.offer && (userAsked || !isSkipped(*outcome.offer)))
        showOffer(*outcome.offer);
    else if (userAsked)
        show(currentAlert(m_installed.displayVersion));
}

void LinuxUpdaterController::retryLater()
{
    if (!m_looks)
        return; // no schedule
    m_retry = m_dependencies.runLoop.scheduleOnce(kRetryInterval, [this] { retry(); });
}

void LinuxUpdaterController::retry()
{
    m_retry.reset();
    checkIfDue();
}

bool LinuxUpdaterController::isSkipped(const UpdateOffer& offer) const
{
    const auto skipped = m_dependencies.userDefaults.data(kSkippedVersionKey);
    return skipped && AppVersion::isVersion(*skipped) && std::is_lteq(AppVersion::compare(offer.build, *skipped));
}

void LinuxUpdaterController::showOffer(const UpdateOffer& offer)
{
    std::vector<Task> answers;
    if (!offer.page.empty())
        answers.emplace_back([this, page = offer.page] { m_dependencies.workspace.openURL(page); });
    answers.emplace_back(
        [this, build = offer.build] { m_dependencies.userDefaults.setData(kSkippedVersionKey, build); });
    show(offerAlert(offer, m_installed.displayVersion), std::move(answers));
}

// `answers` are those of the first buttons; the others do nothing.
void LinuxUpdaterController::show(const AlertModel& alert, std::vector<Task> answers)
{
    m_alert = m_dependencies.alerts.show(alert, [this, answers = std::move(answers)](std::size_t button) {
        const Task chosen = button < answers.size() ? answers[button] : nullptr;
        m_alert.reset();
        if (chosen)
            chosen();
    });
}

std::shared_ptr<UpdaterController> LinuxUpdaterFramework::makeStandardController(bool startingUpdater, UpdaterDelegate&)
{
    const auto feed = m_bundle.infoString("SUFeedURL");
    const auto version = m_bundle.infoString("CFBundleVersion");
    const auto displayVersion = m_bundle.infoString("CFBundleShortVersionString");
    if (!feed || (!version && !displayVersion))
        return nullptr;
    const LinuxUpdaterController::Schedule standard;
    const LinuxUpdaterController::Schedule schedule{
        .isOn = m_bundle.infoNumber("SUEnableAutomaticChecks").value_or(1) != 0,
        .interval = Seconds(m_bundle.infoNumber("SUScheduledCheckInterval").value_or(standard.interval.count()))};
    auto controller = std::make_shared<LinuxUpdaterController>(
        m_dependencies,
        LinuxUpdaterController::Installed{.feed = *feed,
                                          .version = version ? *version : *displayVersion,
                                          .displayVersion = displayVersion ? *displayVersion : *version},
        schedule);
    if (startingUpdater)
        controller->start();
    return controller;
}

} // namespace haloric
