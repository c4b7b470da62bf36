#include "hosts/linux/files/DesktopEntries.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <filesystem>
#include <tuple>

#include <gio/gdesktopappinfo.h>

namespace haloric {

namespace {

constexpr std::string_view kSuffix = ".desktop";

struct Release {
    void operator()(void* object) const { g_object_unref(object); }
    void operator()(char* text) const { g_free(text); }
    void operator()(GList* list) const { g_list_free_full(list, g_object_unref); }
};
using EntryInfo = std::unique_ptr<GDesktopAppInfo, Release>;

std::string textOrEmpty(const char* text) { return text ? text : ""; }

std::string withoutSuffix(std::string name)
{
    if (name.ends_with(kSuffix))
        name.resize(name.size() - kSuffix.size());
    return name;
}

// Calls `visit` with the GDesktopAppInfo of every installed entry.
template <class Visit>
void forEachInstalled(const Visit& visit)
{
    const std::unique_ptr<GList, Release> all(g_app_info_get_all());
    for (const GList* item = all.get(); item; item = item->next)
        visit(G_DESKTOP_APP_INFO(item->data));
}

EntryInfo entryAt(const std::string& path)
{
    return EntryInfo(path.ends_with(kSuffix) ? g_desktop_app_info_new_from_filename(path.c_str()) : nullptr);
}

std::string iconOf(GAppInfo* application)
{
    GIcon* icon = g_app_info_get_icon(application); // belongs to the application
    if (!icon)
        return {};
    const std::unique_ptr<char, Release> text(g_icon_to_string(icon));
    const auto* names = G_IS_THEMED_ICON(icon) ? g_themed_icon_get_names(G_THEMED_ICON(icon)) : nullptr;
    return names && names[0] ? names[0] : textOrEmpty(text.get());
}

ApplicationFile fileOf(GDesktopAppInfo* entry)
{
    auto* application = G_APP_INFO(entry);
    return {textOrEmpty(g_desktop_app_info_get_filename(entry)), textOrEmpty(g_app_info_get_display_name(application)),
            iconOf(application)};
}

// The identifier of an entry in a folder below "applications" contains the folder's name.
std::string nameBelowApplications(const std::filesystem::path& path)
{
    std::string name = path.filename();
    std::string joined = name;
    for (auto folder = path.parent_path(); folder.has_filename(); folder = folder.parent_path()) {
        if (folder.filename() == "applications")
            return joined;
        joined = folder.filename().string() + '-' + joined;
    }
    return name;
}

bool equalAsWritten(std::string_view a, std::string_view b) { return a == b; }

bool equalRegardlessOfCase(std::string_view a, std::string_view b)
{
    const auto lower = [](char c) { return std::tolower(static_cast<unsigned char>(c)); };
    return std::ranges::equal(a, b, {}, lower, lower);
}

// Other text cannot be stored as JSON.
bool isUtf8(const std::string& text)
{
    return g_utf8_validate(text.data(), static_cast<gssize>(text.size()), nullptr) != FALSE;
}

// Whether `a` is the better of two entries that match the name alike.
bool isBetter(const DesktopEntries::Entry& a, const DesktopEntries::Entry& b, std::string_view name)
{
    const auto rank = [name](const DesktopEntries::Entry& entry) {
        return std::tuple(!entry.isShown, entry.identifier != name, !equalRegardlessOfCase(entry.identifier, name),
                          std::string_view(entry.identifier));
    };
    return rank(a) < rank(b);
}

} // namespace

// Reports whether the set of installed applications has changed. GIO delivers the signal to the thread-default context
// at the time of the first request, and the program runs no GLib loop. So this has its own context, and take() turns
// it.
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

    // Whether there was a change since the last call. Does not block.
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
                const Entry* best = nullptr;
                for (const Entry& entry : entries) {
                    if (!name.empty() && equal(entry.*key, name) && (!best || isBetter(entry, *best, name)))
                        best = &entry;
                }
                if (best)
                    return best->identifier;
            }
        }
    }
    return std::nullopt;
}

std::optional<std::string> DesktopEntries::identifier(const ApplicationNames& names)
{
    if (!names.applicationId.empty() && isUtf8(names.applicationId))
        return names.applicationId;
    const auto key =
        std::pair(isUtf8(names.className) ? names.className : "", isUtf8(names.instanceName) ? names.instanceName : "");
    const auto& [className, instanceName] = key;
    if (className.empty() && instanceName.empty())
        return std::nullopt;
    if (m_changes->take()) {
        m_known.clear();
        m_installed.reset();
    }
    if (const auto known = m_known.find(key); known != m_known.end())
        return known->second;
    if (!m_installed)
        m_installed = readInstalled();
    const std::string& ownName = className.empty() ? instanceName : className;
    const auto found = match({{}, instanceName, className}, *m_installed);
    return m_known.emplace(key, found.value_or(ownName)).first->second;
}

std::vector<DesktopEntries::Entry> DesktopEntries::readInstalled()
{
    std::vector<Entry> installed;
    forEachInstalled([&installed](GDesktopAppInfo* entry) {
        std::string identifier = withoutSuffix(textOrEmpty(g_app_info_get_id(G_APP_INFO(entry))));
        if (isUtf8(identifier))
            installed.push_back({std::move(identifier), textOrEmpty(g_desktop_app_info_get_startup_wm_class(entry)),
                                 g_app_info_should_show(G_APP_INFO(entry)) != FALSE});
    });
    return installed;
}

std::optional<std::string> DesktopEntries::pathOf(std::string_view identifier)
{
    const EntryInfo entry(g_desktop_app_info_new((std::string(identifier) + std::string(kSuffix)).c_str()));
    const char* path = entry ? g_desktop_app_info_get_filename(entry.get()) : nullptr;
    return path ? std::optional<std::string>(path) : std::nullopt;
}

std::optional<std::string> DesktopEntries::identifierAt(const std::string& path)
{
    const EntryInfo entry = entryAt(path);
    const std::string name = entry ? withoutSuffix(nameBelowApplications(path)) : std::string();
    if (name.empty() || !isUtf8(name))
        return std::nullopt;
    // Another entry may claim the same windows. Without a claim, the windows are taken to be named like the entry.
    const std::string claimed = textOrEmpty(g_desktop_app_info_get_startup_wm_class(entry.get()));
    return match({{}, {}, claimed.empty() ? name : claimed}, readInstalled()).value_or(name);
}

std::optional<ApplicationFile> DesktopEntries::at(const std::string& path)
{
    const EntryInfo entry = entryAt(path);
    return entry ? std::optional(fileOf(entry.get())) : std::nullopt;
}

std::vector<ApplicationFile> DesktopEntries::shown()
{
    std::vector<ApplicationFile> files;
    forEachInstalled([&files](GDesktopAppInfo* entry) {
        if (g_app_info_should_show(G_APP_INFO(entry)) && isUtf8(textOrEmpty(g_app_info_get_id(G_APP_INFO(entry)))))
            files.push_back(fileOf(entry));
    });
    return files;
}

} // namespace haloric
