#include "hosts/linux/update/UpdateOffer.h"

#include "hosts/linux/update/AppVersion.h"
#include "hosts/linux/update/ReleaseNotes.h"

#include <QUrl>

#include <compare>

namespace haloric {
namespace {

bool isForUs(const AppcastItem& item)
{
    return AppVersion::isVersion(item.version) && item.channel.empty() &&
           (item.system.empty() || item.system == "linux");
}

std::string firstSecurePage(const AppcastItem& item, const Appcast& appcast)
{
    for (const std::string& address : {item.page, appcast.page, item.download}) {
        if (UpdateOffer::isSecurePage(address))
            return address;
    }
    return {};
}

} // namespace

std::optional<UpdateOffer> UpdateOffer::find(const Appcast& appcast, std::string_view installed)
{
    const AppcastItem* newest = nullptr;
    for (const AppcastItem& item : appcast.items) {
        if (isForUs(item) && std::is_gt(AppVersion::compare(item.version, newest ? newest->version : installed)))
            newest = &item;
    }
    if (!newest)
        return {};
    return UpdateOffer{
        .version = ReleaseNotes::plainText(newest->displayVersion.empty() ? newest->version : newest->displayVersion),
        .notes = ReleaseNotes::plainText(newest->description),
        .page = firstSecurePage(*newest, appcast),
    };
}

bool UpdateOffer::isSecurePage(std::string_view address)
{
    const QUrl url(QString::fromUtf8(address.data(), static_cast<qsizetype>(address.size())), QUrl::StrictMode);
    return url.isValid() && url.scheme() == QLatin1String("https") && !url.host().isEmpty() && url.userInfo().isEmpty();
}

} // namespace haloric
