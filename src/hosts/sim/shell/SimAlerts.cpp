#include "hosts/sim/shell/SimAlerts.h"

namespace haloric {

std::int64_t SimAlerts::runModal(const AlertModel& alert)
{
    m_lastAlert = alert;
    modal.run();
    std::size_t button = alert.buttons.empty() ? 0 : alert.buttons.size() - 1;
    if (!m_answers.empty()) {
        button = m_answers.front();
        m_answers.pop_front();
    }
    const std::string answer = button < alert.buttons.size() ? alert.buttons[button] : "nothing";
    m_desktop.journal.note(SimJournal::Kind::alert, alert.messageText + " [" + answer + "]");
    return kFirstButton + static_cast<std::int64_t>(button);
}

void SimAlerts::runModalError(const PlatformError& error)
{
    m_lastAlert = AlertModel{.messageText = error.localizedDescription,
                             .informativeText = error.localizedRecoverySuggestion,
                             .style = AlertStyle::critical,
                             .buttons = {"OK"}};
    modal.run();
    m_desktop.journal.note(SimJournal::Kind::alert, error.localizedDescription);
}

} // namespace haloric
