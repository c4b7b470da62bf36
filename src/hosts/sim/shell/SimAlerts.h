// Alerts of the simulated desktop, answered by script, or by a user over time.
#pragma once

#include "hosts/sim/desktop/SimDesktop.h"
#include "hosts/sim/shell/SimModal.h"
#include "platform/Alerts.h"

#include <deque>
#include <optional>

namespace haloric {

class SimAlerts final : public Alerts {
    SimDesktop& m_desktop; // before `modal`, which uses it

public:
    SimModal modal{m_desktop.runLoop};

    explicit SimAlerts(SimDesktop& desktop) : m_desktop(desktop) {}

    // The button that the next alert is answered with, by index; without one, the last button.
    void willAnswer(std::size_t button) { m_answers.push_back(button); }

    std::int64_t runModal(const AlertModel& alert) override;
    void runModalError(const PlatformError& error) override;

    const std::optional<AlertModel>& lastAlert() const { return m_lastAlert; }

private:
    std::deque<std::size_t> m_answers;
    std::optional<AlertModel> m_lastAlert;
};

} // namespace haloric
