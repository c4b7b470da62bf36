// How long the tests wait for something that must happen. Generous, as machines are busy: only a failure takes
// that long.
#pragma once

#include <algorithm>
#include <chrono>

namespace haloric {

inline constexpr std::chrono::milliseconds kPatience{20'000};

class Deadline {
public:
    explicit Deadline(std::chrono::milliseconds patience) : m_end(std::chrono::steady_clock::now() + patience) {}

    bool isOver() const { return std::chrono::steady_clock::now() >= m_end; }

    // What is left, for poll(2): never negative, never more than `most`.
    int milliseconds(int most = 1'000'000) const
    {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(m_end - std::chrono::steady_clock::now());
        return static_cast<int>(std::clamp<long long>(left.count(), 0, most));
    }

private:
    std::chrono::steady_clock::time_point m_end;
};

} // namespace haloric
