// Data stored under keys for this user and this application. Main thread.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace haloric {

class UserDefaults {
public:
    virtual ~UserDefaults() = default;

    // Absent if nothing is stored or it cannot be read. The string holds bytes.
    virtual std::optional<std::string> data(std::string_view key) const = 0;

    // Replaces the value as a whole: after a crash the old or the new one is there. A failure to store is silent.
    virtual void setData(std::string_view key, std::string_view bytes) = 0;
};

} // namespace haloric
