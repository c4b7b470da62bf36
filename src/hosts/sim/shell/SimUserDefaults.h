// The settings store of the simulated desktop, kept in memory.
#pragma once

#include "hosts/sim/desktop/SimDesktop.h"
#include "platform/UserDefaults.h"

#include <map>
#include <string>

namespace haloric {

class SimUserDefaults final : public UserDefaults {
public:
    explicit SimUserDefaults(SimDesktop& desktop) : m_desktop(desktop) {}

    std::optional<std::string> data(std::string_view key) const override
    {
        const auto found = m_data.find(key);
        return found == m_data.end() ? std::nullopt : std::optional(found->second);
    }

    std::optional<PlatformError> setData(std::string_view key, std::string_view bytes) override
    {
        m_desktop.journal.note(SimJournal::Kind::save, key);
        if (m_desktop.faults.savesFail)
            return PlatformError{.localizedDescription = "The simulated disk is full."};
        m_data.insert_or_assign(std::string(key), std::string(bytes));
        return std::nullopt;
    }

    // Stores without a journal entry, as an earlier run did.
    void preset(std::string_view key, std::string bytes)
    {
        m_data.insert_or_assign(std::string(key), std::move(bytes));
    }

private:
    SimDesktop& m_desktop;
    std::map<std::string, std::string, std::less<>> m_data;
};

} // namespace haloric
