// Child processes and the environment on the simulated desktop: launches are noted in the journal, not executed.
#pragma once

#include "hosts/sim/desktop/SimDesktop.h"
#include "platform/Processes.h"

#include <map>

namespace haloric {

class SimProcesses final : public Processes {
public:
    explicit SimProcesses(SimDesktop& desktop) : m_desktop(desktop) {}

    std::map<std::string, std::string, std::less<>> environment;

    bool launch(const std::string& executable, const std::vector<std::string>& arguments) override
    {
        std::string text = executable;
        for (const auto& argument : arguments)
            text += " [" + argument + "]";
        m_desktop.journal.note(SimJournal::Kind::process, text);
        // The only programs that exist are those of /bin and /usr/bin.
        const bool found = executable.starts_with("/bin/") || executable.starts_with("/usr/bin/");
        return found && !m_desktop.faults.launchesFail;
    }

    std::optional<std::string> environmentVariable(const char* name) const override
    {
        const auto found = environment.find(name);
        return found == environment.end() ? std::nullopt : std::optional(found->second);
    }

private:
    SimDesktop& m_desktop;
};

} // namespace haloric
