#include "settings/AppInfo.h"

#include "platform/ApplicationCatalog.h"
#include "platform/Bundle.h"

#include <algorithm>
#include <set>

namespace haloric {

std::vector<std::string> AppInfo::runningApps(const ApplicationCatalog& catalog, const Bundle& ownBundle)
{
    // In the order of the identifiers, so that applications of the same name do not change places.
    std::set<std::string> identifiers;
    for (const RunningApplication& application : catalog.runningApplications())
        if (application.activationPolicy == ActivationPolicy::regular && application.bundleIdentifier)
            identifiers.insert(*application.bundleIdentifier);
    if (const auto own = ownBundle.identifier())
        identifiers.erase(*own);

    struct Named {
        std::string identifier;
        std::string name;
    };
    std::vector<Named> applications;
    for (const std::string& identifier : identifiers)
        applications.push_back({identifier, displayName(catalog, identifier)});
    std::ranges::stable_sort(applications, [&catalog](const Named& a, const Named& b) {
        return catalog.compareLocalizedCaseInsensitive(a.name, b.name) < 0;
    });

    std::vector<std::string> sorted;
    for (Named& application : applications)
        sorted.push_back(std::move(application.identifier));
    return sorted;
}

std::string AppInfo::displayName(const ApplicationCatalog& catalog, std::string_view bundleIdentifier)
{
    constexpr std::string_view kSuffix = ".app";
    const auto path = catalog.applicationPath(bundleIdentifier);
    if (!path)
        return std::string(bundleIdentifier);
    std::string name = catalog.displayName(*path);
    for (auto at = name.find(kSuffix); at != std::string::npos; at = name.find(kSuffix, at))
        name.erase(at, kSuffix.size());
    return name;
}

Image AppInfo::icon(const ApplicationCatalog& catalog, std::string_view bundleIdentifier)
{
    constexpr std::string_view kApplicationSymbol = "app";
    if (auto path = catalog.applicationPath(bundleIdentifier))
        return FileIcon{std::move(*path)};
    if (catalog.hasSymbol(kApplicationSymbol))
        return SymbolImage{std::string(kApplicationSymbol)};
    return {};
}

} // namespace haloric
