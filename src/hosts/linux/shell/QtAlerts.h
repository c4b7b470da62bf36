// Alerts as message boxes. While one is open the event loop goes on, and with it the program. Closed without an answer,
// by Escape, by its title bar or by the end of the program, the last button counts, which is the one that changes
// nothing. Main thread.
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

    // Closes the open alert of that message, if it is open, as Escape does.
    void dismiss(const std::string& messageText);

private:
    std::vector<QMessageBox*> m_open; // an alert may be shown over another
};

} // namespace haloric
