// Applications that a test installs and starts. Names are compared as ASCII text, regardless of case.
#pragma once

#include "platform/ApplicationCatalog.h"

#include <algorithm>
#include <cctype>
#include <map>
#include <set>
#include <utility>

namespace haloric {

class FakeApplicationCatalog final : public ApplicationCatalog {
public:
    std::vector<RunningApplication> running;
    std::map<std::string, std::string, std::less<>> paths; // by bundle identifier
    std::map<std::string, std::string> displayNames;       // by path
    std::set<std::string, std::less<>> symbols{"app"};
    bool sortsBackwards = false;
    mutable int questions = 0; // about running and installed applications

    void install(const std::string& bundleIdentifier, const std::string& path, const std::string& displayName)
    {
        paths[bundleIdentifier] = path;
        displayNames[path] = displayName;
    }

    // Starts an ordinary application that is installed under that name.
    void launch(const std::string& bundleIdentifier, const std::string& displayName)
    {
        install(bundleIdentifier, "/Applications/" + displayName + ".app", displayName);
        running.push_back({ActivationPolicy::regular, bundleIdentifier});
    }

    std::vector<RunningApplication> runningApplications() const override
    {
        ++questions;
        return running;
    }

    std::optional<std::string> applicationPath(std::string_view bundleIdentifier) const override
    {
        ++questions;
        const auto found = paths.find(bundleIdentifier);
        return found == paths.end() ? std::nullopt : std::optional(found->second);
    }

    std::optional<std::string> bundleIdentifier(const std::string& applicationPath) const override
    {
        for (const auto& [identifier, path] : paths)
            if (path == applicationPath)
                return identifier;
        return std::nullopt;
    }

    std::string displayName(const std::string& path) const override
    {
        const auto found = displayNames.find(path);
        return found == displayNames.end() ? std::string() : found->second;
    }

    int compareLocalizedCaseInsensitive(const std::string& a, const std::string& b) const override
    {
        return sortsBackwards ? lowered(b).compare(lowered(a)) : lowered(a).compare(lowered(b));
    }

    bool hasSymbol(std::string_view name) const override { return symbols.contains(name); }

private:
    static std::string lowered(std::string text)
    {
        std::ranges::transform(text, text.begin(),
                               [](unsigned char character) { return static_cast<char>(std::tolower(character)); });
        return text;
    }
};

} // namespace haloric
