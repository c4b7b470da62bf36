// Data stored under keys for this user and this application. Main thread.
#pragma once

#include "platform/PlatformError.h"

#include <optional>
#include <string>
#include <string_view>

namespace haloric {

class UserDefaults {
public:
    virtual ~UserDefaults() = default;

    // Absent if nothing is stored or it cannot be read. The string holds bytes.
    virtual std::optional<std::string> data(std::string_view key) const = 0;

    // Replaces the value as a whole: after a crash the old or the new one is there. Returns why nothing was stored, in
    // words for the user; no value on success.
    virtual std::optional<PlatformError> setData(std::string_view key, std::string_view bytes) = 0;
};

} // namespace haloric
