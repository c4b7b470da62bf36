#include "hosts/sim/windows/SimApplicationCatalog.h"

#include <algorithm>
#include <cctype>

namespace haloric {

namespace {

std::string pathOf(const SimApp& app) { return "/Applications/" + app.name + ".app"; }

std::string lowered(std::string text)
{
    std::ranges::transform(text, text.begin(),
                           [](unsigned char character) { return static_cast<char>(std::tolower(character)); });
    return text;
}

} // namespace

std::vector<RunningApplication> SimApplicationCatalog::runningApplications() const
{
    std::vector<RunningApplication> running;
    for (const auto& app : m_desktop.model.apps) {
        const bool own = app->pid == SimModel::kOwnProcess;
        running.push_back({own ? ActivationPolicy::accessory : ActivationPolicy::regular, app->bundleID});
    }
    return running;
}

std::optional<std::string> SimApplicationCatalog::applicationPath(std::string_view bundleIdentifier) const
{
    for (const auto& app : m_desktop.model.apps)
        if (app->bundleID == bundleIdentifier)
            return pathOf(*app);
    return std::nullopt;
}

std::optional<std::string> SimApplicationCatalog::bundleIdentifier(const std::string& applicationPath) const
{
    for (const auto& app : m_desktop.model.apps)
        if (pathOf(*app) == applicationPath)
            return app->bundleID;
    return std::nullopt;
}

std::string SimApplicationCatalog::displayName(const std::string& path) const
{
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? path : path.substr(slash + 1);
}

int SimApplicationCatalog::compareLocalizedCaseInsensitive(const std::string& a, const std::string& b) const
{
    return lowered(a).compare(lowered(b));
}

} // namespace haloric
