// The timeout of every wait for something that must happen. It is generous for busy machines; only a failure takes
// that long. Times are of the monotonic clock.
#pragma once

#include <algorithm>
#include <chrono>

namespace haloric {

inline constexpr std::chrono::milliseconds kTimeout{20'000};

class Deadline {
public:
    explicit Deadline(std::chrono::milliseconds timeout) : m_end(std::chrono::steady_clock::now() + timeout) {}

    bool isOver() const { return std::chrono::steady_clock::now() >= m_end; }

    // The time left for poll(2), clamped to 0...`most`.
    int milliseconds(int most = 1'000'000) const
    {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(m_end - std::chrono::steady_clock::now());
        return static_cast<int>(std::clamp<long long>(left.count(), 0, most));
    }

private:
    std::chrono::steady_clock::time_point m_end;
};

} // namespace haloric
