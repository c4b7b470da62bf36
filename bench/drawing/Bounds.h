// The bounds of one run: ratios of medians of the same run, and absolute times.
#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace haloric::bench {

// Prints as ConsoleReporter does and stores the median of each benchmark.
class MedianReporter final : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override;

    // Milliseconds of processor time by name, for instance "glow/1200/800". The benchmarks have one thread that never
    // blocks; wall-clock time would include other programs on a busy machine.
    const std::map<std::string, double>& medians() const { return m_medians; }

private:
    std::map<std::string, double> m_medians;
};

// Prints each bound with its measured value. False when one is missed. Bounds without measured values are skipped.
bool checkBounds(const std::map<std::string, double>& medians);

} // namespace haloric::bench
