// Whether the application starts at login. Stateless: the truth lives in the platform's registration, which the user
// can change behind the program's back. Main thread.
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

    // False where it is not available, whatever the registration says, and while the user has yet to approve it.
    bool isEnabled() const;

    // Registers or unregisters the application. The platform's error, unchanged; none on success, and none where it
    // is not available: nothing happens there.
    std::optional<PlatformError> set(bool enabled);

private:
    const Bundle& m_bundle;
    LoginItemService& m_service;
};

} // namespace haloric
