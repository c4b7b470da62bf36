// Decides whether a focused window pulses: always the first one after an application or Space switch, and
// otherwise when it differs from the window that had focus as a focus change began.
#pragma once

#include "foundation/Ids.h"

#include <optional>
#include <utility>

namespace haloric {

class FocusPulse {
public:
    void pulseOnNextFocus()
    {
        m_pulseFromID.reset();
        m_pulseOnNextFocus = true;
    }

    // A focus change within the application began. The first of several before a result counts.
    void focusChangeBegan(WindowIdentity from)
    {
        if (!m_pulseFromID)
            m_pulseFromID = from;
    }

    // A window was found focused: whether to pulse. Clears what was noted.
    bool focused(WindowIdentity identity)
    {
        const auto from = std::exchange(m_pulseFromID, std::nullopt);
        return std::exchange(m_pulseOnNextFocus, false) || (from && *from != identity);
    }

    void clear() { *this = {}; }

private:
    std::optional<WindowIdentity> m_pulseFromID;
    bool m_pulseOnNextFocus = false;
};

} // namespace haloric
