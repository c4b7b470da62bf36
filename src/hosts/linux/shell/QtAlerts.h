// Alerts as modal message boxes. The event loop runs while one is open. If it is closed without an answer (Escape, its
// title bar, the end of the program), the result is the last button, which changes nothing. Main thread.
#pragma once

#include "platform/Alerts.h"

#include <string>
#include <vector>

class QMessageBox;

namespace haloric {

class QtAlerts final : public Alerts {
public:
    std::int64_t runModal(const AlertModel& alert) override;
    void runModalError(const PlatformError& error) override;

    // Closes the open alert with that message, if any, like Escape.
    void dismiss(const std::string& messageText);

private:
    std::vector<QMessageBox*> m_open; // an alert may be shown over another
};

} // namespace haloric
