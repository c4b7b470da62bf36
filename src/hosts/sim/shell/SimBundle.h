// The bundle of Haloric on the simulated desktop, as public members.
#pragma once

#include "foundation/ProductIdentity.h"
#include "platform/Bundle.h"

#include <map>

namespace haloric {

class SimBundle final : public Bundle {
public:
    std::string bundlePath = "/Applications/Haloric.app";
    std::map<std::string, std::string, std::less<>> information{
        {"CFBundleIdentifier", ProductIdentity::kIdentifier},
        {"CFBundleName", "Haloric"},
        {"CFBundleShortVersionString", "1.0"},
        {"CFBundleVersion", "1"},
        {"SUFeedURL", "https://example.org/haloric/appcast.xml"},
    };

    std::string path() const override { return bundlePath; }
    std::optional<std::string> identifier() const override { return infoString("CFBundleIdentifier"); }
    bool hasInfo(std::string_view key) const override { return information.contains(key); }

    std::optional<std::string> infoString(std::string_view key) const override
    {
        const auto found = information.find(key);
        return found == information.end() ? std::nullopt : std::optional(found->second);
    }
};

} // namespace haloric
