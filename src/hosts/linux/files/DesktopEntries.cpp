#include "hosts/linux/files/DesktopEntries.h"

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

// Tells whether the set of installed applications has changed. GIO says so in the context that is the thread's when it
// is asked first, and nothing turns one here: this has its own, which is turned when the question comes.
class DesktopEntries::Changes {
public:
    Changes()
    {
        g_main_context_push_thread_default(m_context);
        m_monitor = g_app_info_monitor_get();
        g_main_context_pop_thread_default(m_context);
        m_handler = g_signal_connect_swapped(m_monitor, "changed", G_CALLBACK(&Changes::note), this);
    }
    ~Changes()
    {
        g_signal_handler_disconnect(m_monitor, m_handler);
        g_object_unref(m_monitor);
        g_main_context_unref(m_context);
    }
    Changes(const Changes&) = delete;
    Changes& operator=(const Changes&) = delete;

    // Since the last question. Does not wait.
    bool take()
    {
        while (g_main_context_iteration(m_context, FALSE) != 0) {
        }
        return std::exchange(m_changed, false);
    }

private:
    static void note(Changes* self) { self->m_changed = true; }

    GMainContext* m_context = g_main_context_new();
    GAppInfoMonitor* m_monitor = nullptr;
    gulong m_handler = 0;
    bool m_changed = false;
};

DesktopEntries::DesktopEntries() : m_changes(std::make_unique<Changes>()) {}

DesktopEntries::~DesktopEntries() = default;

std::optional<std::string> DesktopEntries::match(const ApplicationNames& names, const std::vector<Entry>& entries)
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

std::optional<std::string> DesktopEntries::identifier(const ApplicationNames& names)
{
    if (!names.applicationId.empty())
        return names.applicationId;
    if (names.className.empty() && names.instanceName.empty())
        return std::nullopt;
    if (m_changes->take()) {
        m_known.clear();
        m_installed.reset();
    }
    const auto key = std::pair(names.className, names.instanceName);
    if (const auto known = m_known.find(key); known != m_known.end())
        return known->second;
    if (!m_installed)
        readInstalled();
    const std::string& ownName = names.className.empty() ? names.instanceName : names.className;
    return m_known.emplace(key, match(names, *m_installed).value_or(ownName)).first->second;
}

void DesktopEntries::readInstalled()
{
    std::vector<Entry>& installed = m_installed.emplace();
    const auto release = [](GList* list) { g_list_free_full(list, g_object_unref); };
    const std::unique_ptr<GList, decltype(release)> all(g_app_info_get_all(), release);
    for (const GList* item = all.get(); item; item = item->next) {
        auto* application = G_DESKTOP_APP_INFO(item->data);
        installed.push_back({withoutSuffix(textOrEmpty(g_app_info_get_id(G_APP_INFO(application)))),
                             textOrEmpty(g_desktop_app_info_get_startup_wm_class(application))});
    }
}

} // namespace haloric
