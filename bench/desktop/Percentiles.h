// Order statistics of measured values.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

namespace haloric {

// The smallest value that at least `fraction` (0...1) of all values do not exceed; 0 without values.
inline double percentile(std::vector<double> values, double fraction)
{
    if (values.empty())
        return 0;
    std::sort(values.begin(), values.end());
    const double rank = std::ceil(fraction * static_cast<double>(values.size()));
    const auto index = static_cast<std::size_t>(std::max(rank, 1.0)) - 1;
    return values[std::min(index, values.size() - 1)];
}

inline double median(const std::vector<double>& values) { return percentile(values, 0.5); }

} // namespace haloric
