#include "hosts/linux/update/UpdateOffer.h"

#include "hosts/linux/update/ReleaseNotes.h"

#include <QUrl>

#include <algorithm>
#include <cctype>

namespace haloric {
namespace {

bool isDigit(char character) { return character >= '0' && character <= '9'; }
bool isLetter(char character) { return std::isalpha(static_cast<unsigned char>(character)) != 0; }

// The kinds of a part, from the oldest version to the newest.
enum class Kind { letters, nothing, number };

struct Part {
    Kind kind = Kind::nothing;
    std::string text; // numbers without leading zeros, letters in lower case
};

// Removes the next part from the text and returns it. Separators between parts are ignored.
Part takePart(std::string_view& text)
{
    const auto first = std::ranges::find_if(text, [](char each) { return isDigit(each) || isLetter(each); });
    text.remove_prefix(static_cast<std::size_t>(first - text.begin()));
    if (text.empty())
        return {};
    const bool isNumber = isDigit(text.front());
    const auto end = std::ranges::find_if_not(text, isNumber ? isDigit : isLetter);
    const auto length = static_cast<std::size_t>(end - text.begin());
    Part part{isNumber ? Kind::number : Kind::letters, std::string(text.substr(0, length))};
    text.remove_prefix(length);
    if (!isNumber) {
        std::ranges::transform(part.text, part.text.begin(),
                               [](unsigned char each) { return static_cast<char>(std::tolower(each)); });
        return part;
    }
    part.text.erase(0, part.text.find_first_not_of('0')); // a zero is empty
    return part.text.empty() ? Part() : part;
}

std::weak_ordering comparePart(const Part& a, const Part& b)
{
    if (a.kind != b.kind)
        return static_cast<int>(a.kind) <=> static_cast<int>(b.kind);
    if (a.kind == Kind::number && a.text.size() != b.text.size())
        return a.text.size() <=> b.text.size();
    return a.text.compare(b.text) <=> 0;
}

std::string_view withoutBuild(std::string_view version) { return version.substr(0, version.find('+')); }

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

bool AppVersion::isVersion(std::string_view text) { return !text.empty() && isDigit(text.front()); }

std::weak_ordering AppVersion::compare(std::string_view a, std::string_view b)
{
    a = withoutBuild(a);
    b = withoutBuild(b);
    while (!a.empty() || !b.empty()) {
        const Part partOfA = takePart(a);
        const Part partOfB = takePart(b);
        if (const auto order = comparePart(partOfA, partOfB); std::is_neq(order))
            return order;
    }
    return std::weak_ordering::equivalent;
}

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
        .build = newest->version,
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
