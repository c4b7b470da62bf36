#include "drawing/Bounds.h"

#include <algorithm>
#include <cstdio>

namespace haloric::bench {

namespace {

enum class Sense { atMost, atLeast };

// `what` divided by `by`, at each size.
struct Bound {
    const char* what;
    const char* by;
    Sense sense;
    double limit;
};

constexpr Bound kBounds[] = {
    {"glow", "limit", Sense::atMost, 1.3},
    {"resizeStep", "limit", Sense::atMost, 2.5},
    {"peerNinePatch", "glow", Sense::atLeast, 5},
    {"peerBoxBlurs", "glow", Sense::atLeast, 100},
};

constexpr char kPulse[] = "pulseFrame/5120/2880";
constexpr double kPulseMilliseconds = 0.5;

constexpr char kAnyValue[] = "anyValue/";
constexpr double kAnyValueMilliseconds = 50;

bool report(const std::string& text, double figure, Sense sense, double limit)
{
    const bool kept = sense == Sense::atMost ? figure <= limit : figure >= limit;
    std::printf("%-52s %8.2f   %s %g   %s\n", text.c_str(), figure, sense == Sense::atMost ? "at most " : "at least",
                limit, kept ? "kept" : "MISSED");
    return kept;
}

} // namespace

void MedianReporter::ReportRuns(const std::vector<Run>& runs)
{
    for (const Run& run : runs)
        if (run.run_type == Run::RT_Aggregate && run.aggregate_name == "median")
            m_medians[run.run_name.function_name + (run.run_name.args.empty() ? "" : "/" + run.run_name.args)] =
                run.GetAdjustedCPUTime();
    ConsoleReporter::ReportRuns(runs);
}

bool checkBounds(const std::map<std::string, double>& medians)
{
    bool allKept = true;
    std::puts("");
    for (const Bound& bound : kBounds) {
        const std::string prefix = std::string(bound.what) + "/";
        for (const auto& [name, time] : medians) {
            if (name.rfind(prefix, 0) != 0)
                continue;
            const std::string size = name.substr(prefix.size());
            const auto base = medians.find(std::string(bound.by) + "/" + size);
            if (base != medians.end())
                allKept &= report(prefix + size + " : " + bound.by, time / base->second, bound.sense, bound.limit);
        }
    }
    if (const auto pulse = medians.find(kPulse); pulse != medians.end())
        allKept &= report(std::string(kPulse) + ", milliseconds", pulse->second, Sense::atMost, kPulseMilliseconds);
    double slowest = 0;
    for (const auto& [name, time] : medians)
        if (name.starts_with(kAnyValue))
            slowest = std::max(slowest, time);
    if (slowest > 0)
        allKept &= report("slowest of anyValue, milliseconds", slowest, Sense::atMost, kAnyValueMilliseconds);
    return allKept;
}

} // namespace haloric::bench
