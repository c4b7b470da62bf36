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

    // One for each process, in no order that means anything.
    virtual std::vector<RunningApplication> runningApplications() const = 0;

    // Where the application of that identifier is installed; absent when it is not.
    virtual std::optional<std::string> applicationPath(std::string_view bundleIdentifier) const = 0;

    // The identifier of the application installed there; absent when there is none, or it has none.
    virtual std::optional<std::string> bundleIdentifier(const std::string& applicationPath) const = 0;

    // What the file at that path is called for the user, in the user's language.
    virtual std::string displayName(const std::string& path) const = 0;

    // Below, equal to or above zero, by the user's language and regardless of case.
    virtual int compareLocalizedCaseInsensitive(const std::string& a, const std::string& b) const = 0;

    // Whether the platform has a symbol of that name.
    virtual bool hasSymbol(std::string_view name) const = 0;
};

} // namespace haloric
