#include "hosts/x11/windows/X11ApplicationCatalog.h"

#include "hosts/linux/files/DesktopEntries.h"

#include <map>
#include <memory>

#include <glib.h>
#include <unistd.h>

namespace haloric {

namespace {

bool isOrdinary(const X11Client& client)
{
    return client.type == X11WindowType::normal || client.type == X11WindowType::dialog;
}

struct Release {
    void operator()(char* text) const { g_free(text); }
};
using Text = std::unique_ptr<char, Release>;

Text withoutCase(const std::string& text)
{
    return Text(g_utf8_casefold(text.data(), static_cast<gssize>(text.size())));
}

} // namespace

std::vector<RunningApplication> X11ApplicationCatalog::runningApplications() const
{
    std::map<ProcessID, bool> isRegular;
    for (const X11Client* client : m_clients.stacking())
        isRegular[client->pid] = isRegular[client->pid] || isOrdinary(*client);
    std::vector<RunningApplication> applications;
    for (auto& [pid, regular] : isRegular) {
        // This program stays in the background, whatever windows it has.
        regular = regular && pid != static_cast<ProcessID>(::getpid());
        applications.push_back(
            {regular ? ActivationPolicy::regular : ActivationPolicy::accessory, m_workspace.bundleIdentifier(pid)});
    }
    return applications;
}

std::optional<std::string> X11ApplicationCatalog::applicationPath(std::string_view bundleIdentifier) const
{
    return DesktopEntries::pathOf(bundleIdentifier);
}

std::optional<std::string> X11ApplicationCatalog::bundleIdentifier(const std::string& applicationPath) const
{
    return DesktopEntries::identifierAt(applicationPath);
}

std::string X11ApplicationCatalog::displayName(const std::string& path) const
{
    if (const auto file = DesktopEntries::at(path); file && !file->name.empty())
        return file->name;
    return Text(g_filename_display_basename(path.c_str())).get();
}

int X11ApplicationCatalog::compareLocalizedCaseInsensitive(const std::string& a, const std::string& b) const
{
    return g_utf8_collate(withoutCase(a).get(), withoutCase(b).get());
}

bool X11ApplicationCatalog::hasSymbol(std::string_view name) const { return name == "app" || name == "minus.circle"; }

} // namespace haloric
