// Modal alerts as NSAlert.
#pragma once

#include "platform/Alerts.h"

namespace haloric {

class MacAlerts final : public Alerts {
public:
    std::int64_t runModal(const AlertModel& alert) override;
    void runModalError(const PlatformError& error) override;
};

} // namespace haloric
