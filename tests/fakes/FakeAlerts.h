// Alerts that answer at once, as a test decides.
#pragma once

#include "foundation/Task.h"
#include "platform/Alerts.h"

#include <vector>

namespace haloric {

class FakeAlerts final : public Alerts {
public:
    std::int64_t answer = kFirstButton + 1;
    std::vector<AlertModel> shown;
    std::vector<PlatformError> errorsShown;
    Task whileShown;      // runs while an alert is up
    Task whileErrorShown; // and while one for an error is

    std::int64_t runModal(const AlertModel& alert) override
    {
        shown.push_back(alert);
        if (whileShown)
            whileShown();
        return answer;
    }

    void runModalError(const PlatformError& error) override
    {
        errorsShown.push_back(error);
        if (whileErrorShown)
            whileErrorShown();
    }
};

} // namespace haloric
