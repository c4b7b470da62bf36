// Applications by their bundle identifiers: which are running, where they are installed, their names and pictures.
// Main thread; nothing blocks on an application.
#pragma once

#include "platform/ActivationPolicy.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace haloric {

struct RunningApplication {
    ActivationPolicy activationPolicy = ActivationPolicy::regular;
    std::optional<std::string> bundleIdentifier;
    friend bool operator==(const RunningApplication&, const RunningApplication&) = default;
};

class ApplicationCatalog {
public:
    virtual ~ApplicationCatalog() = default;

    // One for each process, in no particular order.
    virtual std::vector<RunningApplication> runningApplications() const = 0;

    // The path of the application with that identifier; absent if not installed.
    virtual std::optional<std::string> applicationPath(std::string_view bundleIdentifier) const = 0;

    // The identifier of the application at that path; absent without an application or identifier.
    virtual std::optional<std::string> bundleIdentifier(const std::string& applicationPath) const = 0;

    // The displayed name of the file at that path, in the user's language.
    virtual std::string displayName(const std::string& path) const = 0;

    // Negative, zero or positive, by the user's language and ignoring case.
    virtual int compareLocalizedCaseInsensitive(const std::string& a, const std::string& b) const = 0;

    // Whether the system has a symbol of that name.
    virtual bool hasSymbol(std::string_view name) const = 0;
};

} // namespace haloric
