#include "desktop/UiBench.h"

#include "desktop/Percentiles.h"
#include "desktop/TrayDesktop.h"
#include "hosts/linux/files/LinuxUserDefaults.h"
#include "settings/SettingsStore.h"
#include "testing/x11/TemporaryFolder.h"

#include <cstdio>
#include <vector>

namespace haloric {

void measureSettingsWindow()
{
    constexpr int kPrograms = 7;
    constexpr int kLater = 5;
    std::vector<double> first;
    std::vector<double> later;
    std::vector<double> memoryBefore;
    std::vector<double> memoryOpen;
    std::vector<double> memoryAfter;
    for (int run = 0; run < kPrograms; ++run) {
        TrayDesktop desktop;
        memoryBefore.push_back(desktop.proportionalMegabytes());
        first.push_back(desktop.openSettings());
        memoryOpen.push_back(desktop.proportionalMegabytes());
        desktop.closeSettings();
        for (int time = 0; time < kLater; ++time) {
            later.push_back(desktop.openSettings());
            desktop.closeSettings();
        }
        memoryAfter.push_back(desktop.proportionalMegabytes());
    }
    std::printf("settings window, from the choice to its picture: first median %.1f ms, p90 %.1f ms of %zu; "
                "later median %.1f ms, p90 %.1f ms of %zu\n",
                median(first), percentile(first, 0.9), first.size(), median(later), percentile(later, 0.9),
                later.size());
    std::printf("proportional memory: %.1f MB before it, %.1f MB with it, %.1f MB after it was closed (medians)\n",
                median(memoryBefore), median(memoryOpen), median(memoryAfter));
}

void measureSaves()
{
    constexpr int kSaves = 2'000;
    const TemporaryFolder folder;
    LinuxUserDefaults defaults(folder.path().string());
    SettingsStore store(defaults);
    std::vector<double> milliseconds;
    for (int number = 0; number < kSaves; ++number) {
        const auto begin = BenchClock::now();
        store.update([number](Settings& settings) { settings.glowRadius = number % 50; });
        milliseconds.push_back(millisecondsSince(begin));
    }
    std::printf("a save: median %.3f ms, p99 %.3f ms, longest %.3f ms of %d\n", median(milliseconds),
                percentile(milliseconds, 0.99), percentile(milliseconds, 1), kSaves);
}

} // namespace haloric
