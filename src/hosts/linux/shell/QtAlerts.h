// Alerts as message boxes: modal ones, during which the event loop runs, and others beside the program's windows. If
// one is closed without an answer (Escape, its title bar, the end of the program), a modal one's result is the last
// button, which changes nothing. Main thread.
#pragma once

#include "hosts/linux/qt/QtForeground.h"
#include "hosts/linux/update/UpdaterDependencies.h"
#include "platform/Alerts.h"

#include <string>
#include <vector>

class QMessageBox;

namespace haloric {

class QtAlerts final : public Alerts, public ModelessAlerts {
public:
    // `foreground` outlives it.
    explicit QtAlerts(QtForeground& foreground) : m_foreground(foreground) {}

    // Alerts
    std::int64_t runModal(const AlertModel& alert) override;
    void runModalError(const PlatformError& error) override;

    // ModelessAlerts
    [[nodiscard]] Subscription show(const AlertModel& alert, Answer answer) override;

    // Closes the open modal alert with that message, if any, like Escape.
    void dismiss(const std::string& messageText);

private:
    QtForeground& m_foreground;
    std::vector<QMessageBox*> m_open; // the modal ones; an alert may be shown over another
};

} // namespace haloric
