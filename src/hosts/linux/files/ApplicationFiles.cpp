#include "hosts/linux/files/ApplicationFiles.h"

#include <algorithm>
#include <filesystem>
#include <memory>

#include <gio/gdesktopappinfo.h>

namespace haloric {

namespace {

constexpr std::string_view kSuffix = ".desktop";

struct Release {
    void operator()(void* object) const { g_object_unref(object); }
    void operator()(char* text) const { g_free(text); }
};
using Entry = std::unique_ptr<GDesktopAppInfo, Release>;

std::string textOrEmpty(const char* text) { return text ? text : ""; }

Entry entryAt(const std::string& path)
{
    return Entry(path.ends_with(kSuffix) ? g_desktop_app_info_new_from_filename(path.c_str()) : nullptr);
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

// Entries in folders below "applications" have the folders' names in their identifiers.
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

} // namespace

std::optional<std::string> ApplicationFiles::path(std::string_view identifier)
{
    const Entry entry(g_desktop_app_info_new((std::string(identifier) + std::string(kSuffix)).c_str()));
    const char* path = entry ? g_desktop_app_info_get_filename(entry.get()) : nullptr;
    return path ? std::optional<std::string>(path) : std::nullopt;
}

std::optional<std::string> ApplicationFiles::identifier(const std::string& path)
{
    if (!entryAt(path))
        return std::nullopt;
    std::string name = nameBelowApplications(path);
    name.resize(name.size() - kSuffix.size());
    return name.empty() ? std::nullopt : std::optional(name);
}

std::optional<ApplicationFile> ApplicationFiles::at(const std::string& path)
{
    const Entry entry = entryAt(path);
    return entry ? std::optional(fileOf(entry.get())) : std::nullopt;
}

std::vector<ApplicationFile> ApplicationFiles::all()
{
    std::vector<ApplicationFile> files;
    const auto release = [](GList* list) { g_list_free_full(list, g_object_unref); };
    const std::unique_ptr<GList, decltype(release)> list(g_app_info_get_all(), release);
    for (const GList* item = list.get(); item; item = item->next) {
        if (g_app_info_should_show(G_APP_INFO(item->data)))
            files.push_back(fileOf(G_DESKTOP_APP_INFO(item->data)));
    }
    return files;
}

} // namespace haloric
