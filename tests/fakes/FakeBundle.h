// A bundle at a path and with an information dictionary that a test sets.
#pragma once

#include "platform/Bundle.h"

#include <functional>
#include <map>
#include <set>
#include <string>

namespace haloric {

class FakeBundle final : public Bundle {
public:
    std::string bundlePath = "/Applications/Haloric.app";
    std::map<std::string, std::string, std::less<>> info;
    std::map<std::string, double, std::less<>> numbers;
    std::set<std::string, std::less<>> otherInfo; // keys whose values are no text

    std::string path() const override { return bundlePath; }
    std::optional<std::string> identifier() const override { return infoString("CFBundleIdentifier"); }
    bool hasInfo(std::string_view key) const override { return info.contains(key) || otherInfo.contains(key); }

    std::optional<std::string> infoString(std::string_view key) const override
    {
        const auto found = info.find(key);
        return found == info.end() ? std::nullopt : std::optional(found->second);
    }

    std::optional<double> infoNumber(std::string_view key) const override
    {
        const auto found = numbers.find(key);
        return found == numbers.end() ? std::nullopt : std::optional(found->second);
    }
};

} // namespace haloric
