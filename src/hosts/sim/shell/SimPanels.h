// The About and open panels of the simulated desktop, answered by script.
#pragma once

#include "hosts/sim/desktop/SimDesktop.h"
#include "platform/Panels.h"

#include <deque>

namespace haloric {

class SimPanels final : public Panels {
public:
    explicit SimPanels(SimDesktop& desktop) : m_desktop(desktop) {}

    // The user's choice in the next open panel; without one the panel is cancelled.
    void willChoose(std::string path) { m_choices.push_back(std::move(path)); }

    void orderFrontStandardAboutPanel(const AboutPanel& panel) override
    {
        m_desktop.journal.note(SimJournal::Kind::shell,
                               "about " + panel.applicationName + " " + panel.applicationVersion);
    }

    std::optional<std::string> runModalOpenPanel(const OpenPanel& panel) override
    {
        std::optional<std::string> choice;
        if (!m_choices.empty()) {
            choice = m_choices.front();
            m_choices.pop_front();
        }
        m_desktop.journal.note(SimJournal::Kind::shell,
                               "open panel in " + panel.directory + " [" + choice.value_or("Cancel") + "]");
        return choice;
    }

private:
    SimDesktop& m_desktop;
    std::deque<std::string> m_choices;
};

} // namespace haloric
