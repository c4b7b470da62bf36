// Whether the application starts at login. Stateless: the system's registration is read each time, because the user can
// change it outside the program. Main thread.
#pragma once

#include "platform/PlatformError.h"

#include <optional>

namespace haloric {

class Bundle;
class LoginItemService;

class LaunchAtLogin {
public:
    // Both outlive this.
    LaunchAtLogin(const Bundle& bundle, LoginItemService& service);

    // Only an application bundle can be registered: the bundle path's extension is exactly "app".
    bool isAvailable() const;

    // False if not available, whatever the registration, and while the user has not approved it yet.
    bool isEnabled() const;

    // Available and registered, but not in force until the user approves.
    bool awaitsApproval() const;

    // Registers or unregisters the application. Returns the system's error, or no value on success. Does nothing, and
    // returns no value, if not available.
    std::optional<PlatformError> set(bool enabled);

private:
    const Bundle& m_bundle;
    LoginItemService& m_service;
};

} // namespace haloric
