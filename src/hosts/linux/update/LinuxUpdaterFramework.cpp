#include "hosts/linux/update/LinuxUpdaterFramework.h"

#include "hosts/linux/update/UpdateOffer.h"
#include "platform/Bundle.h"
#include "platform/RunLoop.h"
#include "platform/UserDefaults.h"
#include "platform/Workspace.h"

#include <charconv>
#include <optional>
#include <utility>

namespace haloric {
namespace {

constexpr Seconds kTolerance{300};

AlertModel offerAlert(const UpdateOffer& offer, const std::string& installed)
{
    AlertModel alert{.messageText = "A new version of Haloric is available.",
                     .informativeText = "Haloric " + offer.version + " is available. You have " + installed + ".",
                     .style = AlertStyle::informational,
                     .buttons = {"Open Download Page", "Later"}};
    if (!offer.notes.empty())
        alert.informativeText += "\n\n" + offer.notes;
    if (offer.page.empty())
        alert.buttons = {"OK"};
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

LinuxUpdaterController::LinuxUpdaterController(const Dependencies& dependencies, Installed installed)
    : m_dependencies(dependencies),
      m_installed(std::move(installed))
{
}

void LinuxUpdaterController::start()
{
    m_firstLook = m_dependencies.runLoop.scheduleOnce(kFirstLook, [this] { checkIfDue(); });
    m_looks = m_dependencies.runLoop.scheduleRepeating(kLookInterval, kTolerance, [this] { checkIfDue(); });
}

void LinuxUpdaterController::checkForUpdates()
{
    if (m_isShowing)
        return;
    m_userAsked = true;
    m_progress.reset(); // showing it again brings it to the front
    m_progress = m_dependencies.progress.show([this] { cancel(); });
    check();
}

void LinuxUpdaterController::cancel()
{
    m_userAsked = false;
    m_fetch.reset();
    m_progress.reset();
}

void LinuxUpdaterController::checkIfDue()
{
    const Seconds now = m_dependencies.runLoop.wallClock();
    const auto last = parseTime(m_dependencies.userDefaults.data(kLastCheckKey));
    const bool isDue =
        !last || *last > now || now - *last >= kCheckInterval; // `last` is in the future if the clock was set back
    if (isDue && !m_isShowing)
        check();
}

void LinuxUpdaterController::check()
{
    if (m_fetch)
        return; // its outcome serves both requests
    const auto now = static_cast<long long>(m_dependencies.runLoop.wallClock().count());
    m_dependencies.userDefaults.setData(kLastCheckKey, std::to_string(now));
    m_fetch =
        m_dependencies.source.fetch(m_installed.feed, [this](const AppcastDownload& download) { receive(download); });
}

void LinuxUpdaterController::receive(const AppcastDownload& download)
{
    // On a later turn, because the alert blocks its caller until it is answered.
    m_dependencies.runLoop.post([weak = m_weakAnchor.ref(), download, userAsked = std::exchange(m_userAsked, false)] {
        if (LinuxUpdaterController* self = weak.get())
            self->report(download, userAsked);
    });
    m_progress.reset();
    m_fetch.reset();
}

void LinuxUpdaterController::report(const AppcastDownload& download, bool userAsked)
{
    std::string error = download.error;
    std::optional<UpdateOffer> offer;
    if (error.empty()) {
        const Appcast appcast = Appcast::parse(download.bytes);
        error = appcast.error;
        offer = UpdateOffer::find(appcast, m_installed.version);
    }
    if (offer)
        show(offerAlert(*offer, m_installed.displayVersion), offer->page);
    else if (userAsked)
        show(error.empty() ? currentAlert(m_installed.displayVersion) : failureAlert(error), {});
}

void LinuxUpdaterController::show(const AlertModel& alert, const std::string& page)
{
    if (m_isShowing)
        return;
    m_isShowing = true;
    const auto weak = m_weakAnchor.ref();
    Workspace& workspace = m_dependencies.workspace;
    const auto answer = m_dependencies.alerts.runModal(alert);
    if (!page.empty() && answer == Alerts::kFirstButton)
        workspace.openURL(page);
    if (LinuxUpdaterController* self = weak.get())
        self->m_isShowing = false;
}

std::shared_ptr<UpdaterController> LinuxUpdaterFramework::makeStandardController(bool startingUpdater, UpdaterDelegate&)
{
    const auto feed = m_bundle.infoString("SUFeedURL");
    const auto version = m_bundle.infoString("CFBundleVersion");
    const auto displayVersion = m_bundle.infoString("CFBundleShortVersionString");
    if (!feed || (!version && !displayVersion))
        return nullptr;
    auto controller = std::make_shared<LinuxUpdaterController>(
        m_dependencies,
        LinuxUpdaterController::Installed{.feed = *feed,
                                          .version = version ? *version : *displayVersion,
                                          .displayVersion = displayVersion ? *displayVersion : *version});
    if (startingUpdater)
        controller->start();
    return controller;
}

} // namespace haloric
