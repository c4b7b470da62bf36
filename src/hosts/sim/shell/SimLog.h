// The log on the simulated desktop: lines kept in memory and in the journal.
#pragma once

#include "hosts/sim/desktop/SimDesktop.h"
#include "platform/Log.h"

#include <string>
#include <vector>

namespace haloric {

class SimLog final : public Log {
public:
    explicit SimLog(SimDesktop& desktop) : m_desktop(desktop) {}

    void line(std::string_view text) override
    {
        m_lines.emplace_back(text);
        m_desktop.journal.note(SimJournal::Kind::log, text);
    }

    const std::vector<std::string>& lines() const { return m_lines; }

private:
    SimDesktop& m_desktop;
    std::vector<std::string> m_lines;
};

} // namespace haloric
