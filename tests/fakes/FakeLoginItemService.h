// A login-item registration in memory. It notes every call, and fails as a test decides.
#pragma once

#include "foundation/Task.h"
#include "platform/LoginItemService.h"

#include <string>
#include <vector>

namespace haloric {

class FakeLoginItemService final : public LoginItemService {
public:
    LoginItemStatus currentStatus = LoginItemStatus::notRegistered;
    LoginItemStatus statusOnceRegistered = LoginItemStatus::enabled;
    std::optional<PlatformError> error; // given by every change, which then changes nothing
    std::vector<std::string> changes;   // "register", "unregister"
    Task whileChanging;                 // runs inside a change
    mutable int questions = 0;          // for the status

    LoginItemStatus status() const override
    {
        ++questions;
        return currentStatus;
    }
    std::optional<PlatformError> registerApplication() override { return change("register", statusOnceRegistered); }

    std::optional<PlatformError> unregisterApplication() override
    {
        return change("unregister", LoginItemStatus::notRegistered);
    }

private:
    std::optional<PlatformError> change(const char* name, LoginItemStatus status)
    {
        changes.emplace_back(name);
        if (whileChanging)
            whileChanging();
        if (!error)
            currentStatus = status;
        return error;
    }
};

} // namespace haloric
