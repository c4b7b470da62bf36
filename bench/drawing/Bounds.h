// What the figures of one run have to keep to: ratios of medians taken in the same run, and a few times.
#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace haloric::bench {

// Prints as usual and remembers the median of each benchmark.
class MedianReporter final : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override;

    // Milliseconds of processor time by name, as in "glow/1200/800". All of it is one thread that waits for nothing;
    // the clock on the wall would count what other programs take on a busy machine.
    const std::map<std::string, double>& medians() const { return m_medians; }

private:
    std::map<std::string, double> m_medians;
};

// Prints each bound with what was measured. False when one is missed; bounds whose benchmarks did not run are left out.
bool checkBounds(const std::map<std::string, double>& medians);

} // namespace haloric::bench
