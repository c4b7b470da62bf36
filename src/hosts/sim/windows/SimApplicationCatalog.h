// The applications of the simulated desktop. Those that run are the installed ones, in /Applications.
#pragma once

#include "hosts/sim/desktop/SimDesktop.h"
#include "platform/ApplicationCatalog.h"

namespace haloric {

class SimApplicationCatalog final : public ApplicationCatalog {
public:
    explicit SimApplicationCatalog(const SimDesktop& desktop) : m_desktop(desktop) {}

    std::vector<RunningApplication> runningApplications() const override;
    std::optional<std::string> applicationPath(std::string_view bundleIdentifier) const override;
    std::optional<std::string> bundleIdentifier(const std::string& applicationPath) const override;
    std::string displayName(const std::string& path) const override;
    int compareLocalizedCaseInsensitive(const std::string& a, const std::string& b) const override; // ASCII letters
    bool hasSymbol(std::string_view name) const override { return name == "app" || name == "minus.circle"; }

private:
    const SimDesktop& m_desktop;
};

} // namespace haloric
