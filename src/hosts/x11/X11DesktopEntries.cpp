#include "hosts/x11/X11DesktopEntries.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <functional>
#include <memory>
#include <string_view>
#include <utility>

#include <gio/gdesktopappinfo.h>

namespace haloric {

namespace {

constexpr std::string_view kSuffix = ".desktop";

// A class without an entry may get one when its application is installed, but reading all entries takes a while.
constexpr std::chrono::seconds kRereadInterval{30};

bool equalAsWritten(std::string_view a, std::string_view b) { return a == b; }

bool equalRegardlessOfCase(std::string_view a, std::string_view b)
{
    const auto lower = [](char c) { return std::tolower(static_cast<unsigned char>(c)); };
    return std::ranges::equal(a, b, {}, lower, lower);
}

std::string textOrEmpty(const char* text) { return text ? text : ""; }

std::string withoutSuffix(std::string identifier)
{
    if (identifier.ends_with(kSuffix))
        identifier.resize(identifier.size() - kSuffix.size());
    return identifier;
}

} // namespace

std::optional<std::string> X11DesktopEntries::match(const X11ApplicationNames& names, const std::vector<Entry>& entries)
{
    for (const auto key : {&Entry::windowClass, &Entry::identifier}) {
        for (const auto equal : {&equalAsWritten, &equalRegardlessOfCase}) {
            for (const std::string_view name :
                 {std::string_view(names.className), std::string_view(names.instanceName)}) {
                const auto found = std::ranges::find_if(
                    entries, [&](const Entry& entry) { return !name.empty() && equal(entry.*key, name); });
                if (found != entries.end())
                    return found->identifier;
            }
        }
    }
    return std::nullopt;
}

std::optional<std::string> X11DesktopEntries::identifier(const X11ApplicationNames& names)
{
    if (!names.applicationId.empty())
        return names.applicationId;
    if (names.className.empty() && names.instanceName.empty())
        return std::nullopt;
    const auto key = std::pair(names.className, names.instanceName);
    const auto known = m_found.find(key);
    if (known != m_found.end())
        return known->second;

    const auto now = std::chrono::steady_clock::now();
    if (!m_readAt || now - *m_readAt >= kRereadInterval) {
        readInstalled();
        m_readAt = now;
    }
    if (auto found = match(names, m_installed))
        return m_found.emplace(key, *std::move(found)).first->second;
    return names.className.empty() ? names.instanceName : names.className;
}

void X11DesktopEntries::readInstalled()
{
    m_installed.clear();
    const auto release = [](GList* list) { g_list_free_full(list, g_object_unref); };
    const std::unique_ptr<GList, decltype(release)> all(g_app_info_get_all(), release);
    for (const GList* item = all.get(); item; item = item->next) {
        auto* application = G_DESKTOP_APP_INFO(item->data);
        m_installed.push_back({withoutSuffix(textOrEmpty(g_app_info_get_id(G_APP_INFO(application)))),
                               textOrEmpty(g_desktop_app_info_get_startup_wm_class(application))});
    }
}

} // namespace haloric
