// The keyboard of the simulated desktop: key-down events for event taps.
#pragma once

#include "hosts/sim/desktop/SimNotifier.h"

#include <cstdint>

namespace haloric {

class SimKeyboard {
public:
    static constexpr std::uint64_t kShift = 0x20000;
    static constexpr std::uint64_t kControl = 0x40000;
    static constexpr std::uint64_t kOption = 0x80000;
    static constexpr std::uint64_t kCommand = 0x100000;
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
