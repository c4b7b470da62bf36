// User defaults in memory, with a note of every write.
#pragma once

#include "platform/UserDefaults.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace haloric {

class FakeUserDefaults final : public UserDefaults {
public:
    std::map<std::string, std::string, std::less<>> stored;
    mutable std::vector<std::string> reads;                  // keys
    std::vector<std::pair<std::string, std::string>> writes; // keys and bytes, also of refused writes
    std::optional<PlatformError> refusal;                    // of every write

    std::optional<std::string> data(std::string_view key) const override
    {
        reads.emplace_back(key);
        const auto found = stored.find(key);
        return found == stored.end() ? std::nullopt : std::optional(found->second);
    }

    std::optional<PlatformError> setData(std::string_view key, std::string_view bytes) override
    {
        writes.emplace_back(key, bytes);
        if (refusal)
            return refusal;
        stored.insert_or_assign(std::string(key), std::string(bytes));
        return std::nullopt;
    }
};

} // namespace haloric
