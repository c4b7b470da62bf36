// The About and open panels of the simulated desktop, answered by script, or by a user over time.
#pragma once

#include "hosts/sim/desktop/SimDesktop.h"
#include "hosts/sim/shell/SimModal.h"
#include "platform/Panels.h"

#include <deque>
#include <optional>
#include <string>

namespace haloric {

class SimPanels final : public Panels {
    SimDesktop& m_desktop; // before `modal`, which uses it

public:
    SimModal modal{m_desktop.runLoop};

    explicit SimPanels(SimDesktop& desktop) : m_desktop(desktop) {}

    // The user's choice in the next open panel; without one the panel is cancelled.
    void willChoose(std::string path) { m_choices.push_back(std::move(path)); }

    // The About panel that is on screen.
    const std::optional<AboutPanel>& about() const { return m_about; }

    void orderFrontStandardAboutPanel(const AboutPanel& panel) override
    {
        m_about = panel;
        m_desktop.journal.note(SimJournal::Kind::shell,
                               "about " + panel.applicationName + " " + panel.applicationVersion);
    }

    std::optional<std::string> runModalOpenPanel(const OpenPanel& panel) override
    {
        modal.run();
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
    std::deque<std::string> m_choices;
    std::optional<AboutPanel> m_about;
};

} // namespace haloric
