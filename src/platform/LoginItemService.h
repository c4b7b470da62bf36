// The system's registration of this application to start at login. Main thread; may block briefly.
#pragma once

#include "platform/PlatformError.h"

#include <cstdint>
#include <optional>

namespace haloric {

enum class LoginItemStatus : std::int64_t { notRegistered = 0, enabled = 1, requiresApproval = 2, notFound = 3 };

class LoginItemService {
public:
    virtual ~LoginItemService() = default;

    virtual LoginItemStatus status() const = 0;

    // The system's error; no value on success.
    virtual std::optional<PlatformError> registerApplication() = 0;
    virtual std::optional<PlatformError> unregisterApplication() = 0;
};

} // namespace haloric
