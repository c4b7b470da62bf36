// Alerts as text. There is no toolkit to show a window with: the words go to standard error, and the answer is the
// one that changes nothing, the last button ("Later", "Cancel"). Never blocks. Main thread.
#pragma once

#include "platform/Alerts.h"

namespace haloric {

class X11Alerts final : public Alerts {
public:
    std::int64_t runModal(const AlertModel& alert) override;
    void runModalError(const PlatformError& error) override;
};

} // namespace haloric
