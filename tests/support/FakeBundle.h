// A bundle at a path and with an information dictionary that a test sets.
#pragma once

#include "platform/Bundle.h"

#include <functional>
#include <map>
#include <string>

namespace haloric {

class FakeBundle final : public Bundle {
public:
    std::string bundlePath = "/Applications/Haloric.app";
    std::map<std::string, std::string, std::less<>> info;

    std::string path() const override { return bundlePath; }

    std::optional<std::string> infoString(std::string_view key) const override
    {
        const auto found = info.find(key);
        return found == info.end() ? std::nullopt : std::optional(found->second);
    }
};

} // namespace haloric
