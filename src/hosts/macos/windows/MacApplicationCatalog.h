// Running and installed applications, from NSWorkspace and NSFileManager.
#pragma once

#include "platform/ApplicationCatalog.h"

namespace haloric {

class MacApplicationCatalog final : public ApplicationCatalog {
public:
    std::vector<RunningApplication> runningApplications() const override;
    std::optional<std::string> applicationPath(std::string_view bundleIdentifier) const override;
    std::optional<std::string> bundleIdentifier(const std::string& applicationPath) const override;
    std::string displayName(const std::string& path) const override;
    int compareLocalizedCaseInsensitive(const std::string& a, const std::string& b) const override;
    bool hasSymbol(std::string_view name) const override;
};

} // namespace haloric
