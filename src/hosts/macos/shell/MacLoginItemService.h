// Starting at login through SMAppService.
#pragma once

#include "platform/LoginItemService.h"

namespace haloric {

class MacLoginItemService final : public LoginItemService {
public:
    LoginItemStatus status() const override;
    std::optional<PlatformError> registerApplication() override;
    std::optional<PlatformError> unregisterApplication() override;
};

} // namespace haloric
