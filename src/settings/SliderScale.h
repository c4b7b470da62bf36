// The values that a slider can take: multiples of a step that is a whole fraction of one, between two of them.
#pragma once

#include <algorithm>
#include <cmath>
#include <optional>

namespace haloric {

// Counted in whole steps, so that every value is one division of two integers, hence the double nearest to its decimal:
// 0.3 is 6 / 20, where 0.1 + 4 * 0.05 misses it.
struct SliderScale {
    int stepsPerUnit = 1;
    int first = 0;
    int last = 1;

    constexpr double value(int steps) const { return static_cast<double>(steps) / stepsPerUnit; }
    constexpr double minimum() const { return value(first); }
    constexpr double maximum() const { return value(last); }
    constexpr double step() const { return value(1); }

    // The value nearest to `wanted`; absent for what is no number, or infinite.
    std::optional<double> nearest(double wanted) const
    {
        if (!std::isfinite(wanted))
            return std::nullopt;
        return std::round(std::clamp(wanted, minimum(), maximum()) * stepsPerUnit) / stepsPerUnit;
    }
};

} // namespace haloric
