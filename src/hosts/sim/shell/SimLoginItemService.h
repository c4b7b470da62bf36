// Starting at login on the simulated desktop: a status that a fault can freeze.
#pragma once

#include "hosts/sim/desktop/SimDesktop.h"
#include "platform/LoginItemService.h"

namespace haloric {

class SimLoginItemService final : public LoginItemService {
public:
    LoginItemStatus currentStatus = LoginItemStatus::notRegistered;

    explicit SimLoginItemService(SimDesktop& desktop) : m_desktop(desktop) {}

    LoginItemStatus status() const override { return currentStatus; }

    std::optional<PlatformError> registerApplication() override
    {
        return change(LoginItemStatus::enabled, "login item registered");
    }

    std::optional<PlatformError> unregisterApplication() override
    {
        return change(LoginItemStatus::notRegistered, "login item unregistered");
    }

private:
    std::optional<PlatformError> change(LoginItemStatus status, const char* what)
    {
        if (m_desktop.faults.loginItemsFail)
            return PlatformError{"SimLoginItems", 1, "The login item cannot be changed.", ""};
        currentStatus = status;
        m_desktop.journal.note(SimJournal::Kind::shell, what);
        return std::nullopt;
    }

    SimDesktop& m_desktop;
};

} // namespace haloric
