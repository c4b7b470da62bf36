// The settings in the standard user defaults, in the application's own domain.
#pragma once

#include "platform/UserDefaults.h"

namespace haloric {

class MacUserDefaults final : public UserDefaults {
public:
    std::optional<std::string> data(std::string_view key) const override;

    // Always succeeds: the system writes the value later, and reports no failure.
    std::optional<PlatformError> setData(std::string_view key, std::string_view bytes) override;
};

} // namespace haloric
