#include "hosts/linux/update/LinuxUpdaterController.h"

#include "hosts/linux/update/UpdateOffer.h"
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

LinuxUpdaterController::LinuxUpdaterController(const Platform& platform, Installed installed)
    : m_platform(platform),
      m_installed(std::move(installed))
{
}

void LinuxUpdaterController::start()
{
    m_firstLook = m_platform.runLoop.scheduleOnce(kFirstLook, [this] { lookWhetherDue(); });
    m_looks = m_platform.runLoop.scheduleRepeating(kLookInterval, kTolerance, [this] { lookWhetherDue(); });
}

void LinuxUpdaterController::checkForUpdates()
{
    if (m_isShowing)
        return;
    m_userAsked = true;
    m_progress.reset(); // shown anew, it comes to the front
    m_progress = m_platform.progress.show([this] { cancel(); });
    check();
}

void LinuxUpdaterController::cancel()
{
    m_userAsked = false;
    m_fetch.reset();
    m_progress.reset();
}

void LinuxUpdaterController::lookWhetherDue()
{
    const Seconds now = m_platform.runLoop.wallClock();
    const auto last = parseTime(m_platform.userDefaults.data(kLastCheckKey));
    const bool isDue = !last || *last > now || now - *last >= kCheckInterval; // the clock may have been set back
    if (isDue && !m_isShowing)
        check();
}

void LinuxUpdaterController::check()
{
    if (m_fetch)
        return; // its outcome serves both
    const auto now = static_cast<long long>(m_platform.runLoop.wallClock().count());
    m_platform.userDefaults.setData(kLastCheckKey, std::to_string(now));
    m_fetch = m_platform.source.fetch(m_installed.feed, [this](const AppcastDownload& download) { receive(download); });
}

void LinuxUpdaterController::receive(const AppcastDownload& download)
{
    // On a turn of its own: an alert holds up whoever shows it.
    m_platform.runLoop.post([weak = m_weakAnchor.ref(), download, userAsked = std::exchange(m_userAsked, false)] {
        if (LinuxUpdaterController* self = weak.get())
            self->tell(download, userAsked);
    });
    m_progress.reset();
    m_fetch.reset();
}

void LinuxUpdaterController::tell(const AppcastDownload& download, bool userAsked)
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
    Workspace& workspace = m_platform.workspace;
    const auto answer = m_platform.alerts.runModal(alert);
    if (!page.empty() && answer == Alerts::kFirstButton)
        workspace.openURL(page);
    if (LinuxUpdaterController* self = weak.get())
        self->m_isShowing = false;
}

} // namespace haloric
