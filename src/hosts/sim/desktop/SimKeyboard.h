// The keyboard of the simulated desktop: key-down events for event taps.
#pragma once

#include "hosts/sim/desktop/SimNotifier.h"

#include <cstdint>

namespace haloric {

class SimKeyboard {
public:
    static constexpr std::int64_t kDigit4 = 21;
    static constexpr std::int64_t kDigit5 = 23;
    static constexpr std::int64_t kEscape = 53;

    explicit SimKeyboard(SimNotifier& notifier) : m_notifier(notifier) {}

    void press(std::int64_t keyCode, std::uint64_t flags) { m_notifier.postTap({EventType::keyDown, keyCode, flags}); }

    // Disables event taps, as macOS does with slow ones; they may be enabled again.
    void disableTaps(EventType reason) { m_notifier.postTap({reason, 0, 0}); }

private:
    SimNotifier& m_notifier;
};

} // namespace haloric
