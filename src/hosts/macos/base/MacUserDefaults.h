// The application's domain of the standard user defaults.
#pragma once

#include "platform/UserDefaults.h"

namespace haloric {

class MacUserDefaults final : public UserDefaults {
public:
    std::optional<std::string> data(std::string_view key) const override;
    void setData(std::string_view key, std::string_view bytes) override;
};

} // namespace haloric
