// Measures the program on a private desktop: the lag of the highlight behind a drag, the cost of the idle program, the
// time to the first highlight, and the response of the settings.
//
//   haloric-desktop-bench lag|idle|start|ui

#include "desktop/MovementWatcher.h"
#include "desktop/Percentiles.h"
#include "desktop/UiBench.h"
#include "testing/x11/HaloricProcess.h"
#include "testing/x11/ProcessFigures.h"
#include "testing/x11/Require.h"

#include <chrono>
#include <cstdio>
#include <exception>
#include <string_view>
#include <thread>

namespace haloric {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

xcb_window_t highlightOf(HaloricProcess& haloric, TestClient& client)
{
    const auto highlight = haloric.waitForHighlight(client.visibleFrame());
    require(highlight.has_value(), "no highlight appeared");
    return highlight->window;
}

// Drags the window by its title bar: 375 steps of 4 pixels at 125 Hz, right and left.
void drag(X11Session& session, TestClient& client)
{
    constexpr int kSteps = 375;
    constexpr int kStepPixels = 4;
    constexpr int kTurnAfter = 125;
    const ScreenRect frame = client.visibleFrame();
    int x = frame.x + frame.width / 2;
    const int y = (frame.y + client.content().y) / 2;
    session.input().moveTo(x, y);
    session.input().press();
    auto next = Clock::now();
    for (int step = 0; step < kSteps; ++step) {
        x += (step / kTurnAfter) % 2 == 0 ? kStepPixels : -kStepPixels;
        session.input().moveTo(x, y);
        next += 8ms;
        std::this_thread::sleep_until(next);
    }
    session.input().release();
    session.observer().synchronize();
}

void measureLag(const char* name, WindowManager windowManager, Compositor compositor)
{
    constexpr int kRuns = 5;
    std::vector<double> middle;
    std::vector<double> high;
    std::vector<double> disagreement;
    for (int run = 0; run < kRuns; ++run) {
        X11Session session(windowManager, compositor);
        const auto client = session.makeClient();
        require(client->showFocused(), "the window was not shown");
        HaloricProcess haloric(session);
        const xcb_window_t overlay = highlightOf(haloric, *client);
        MovementWatcher watcher(session.display(), session.observer().topLevelOf(client->window()), overlay);
        drag(session, *client);
        std::this_thread::sleep_for(100ms); // the last moves of the overlay
        const auto result = watcher.finish();
        middle.push_back(percentile(result.lagMilliseconds, 0.5));
        high.push_back(percentile(result.lagMilliseconds, 0.99));
        disagreement.push_back(100.0 * static_cast<double>(result.disagreements) / static_cast<double>(result.samples));
        std::printf("  %zu moves, %zu answered, p50 %.3f ms, p99 %.3f ms, %.2f %% of %zu samples disagree\n",
                    result.frameMoves, result.lagMilliseconds.size(), middle.back(), high.back(), disagreement.back(),
                    result.samples);
    }
    std::printf("%s: event to moved p50 %.3f ms, p99 %.3f ms; %.2f %% of samples disagree (medians of %d drags)\n",
                name, median(middle), median(high), median(disagreement), kRuns);
}

void measureIdle()
{
    constexpr auto kSettle = 5s;
    constexpr auto kSpan = 30s;
    X11Session session(WindowManager::openbox, Compositor::picom);
    const auto client = session.makeClient();
    require(client->showFocused(), "the window was not shown");
    HaloricProcess haloric(session);
    highlightOf(haloric, *client);
    std::this_thread::sleep_for(kSettle);
    const auto before = ProcessFigures::of(haloric.pid());
    std::this_thread::sleep_for(kSpan);
    const auto after = ProcessFigures::of(haloric.pid());
    const double seconds = std::chrono::duration<double>(kSpan).count();
    std::printf("idle: main thread woke %.2f times a second, all threads %.2f; %.3f %% of one core; "
                "%.1f MB proportional memory\n",
                static_cast<double>(after.mainThreadSwitches - before.mainThreadSwitches) / seconds,
                static_cast<double>(after.voluntarySwitches - before.voluntarySwitches) / seconds,
                100 * (after.processorSeconds - before.processorSeconds) / seconds, after.proportionalMegabytes);
}

void measureStart()
{
    constexpr int kRuns = 21;
    X11Session session(WindowManager::openbox, Compositor::picom);
    const auto client = session.makeClient();
    require(client->showFocused(), "the window was not shown");
    std::vector<double> milliseconds;
    for (int run = 0; run < kRuns; ++run) {
        const auto begin = Clock::now();
        HaloricProcess haloric(session);
        highlightOf(haloric, *client);
        milliseconds.push_back(std::chrono::duration<double, std::milli>(Clock::now() - begin).count());
        require(haloric.stop() == 0, "the program did not end cleanly");
    }
    std::printf("start to first highlight: median %.1f ms, p90 %.1f ms of %d starts\n", median(milliseconds),
                percentile(milliseconds, 0.9), kRuns);
}

int run(std::string_view what)
{
    if (what == "lag") {
        measureLag("openbox + picom, 1920x1080", WindowManager::openbox, Compositor::picom);
        measureLag("openbox, no compositor", WindowManager::openbox, Compositor::none);
        measureLag("xfwm4 with its own compositor", WindowManager::xfwm4Compositing, Compositor::none);
        return 0;
    }
    if (what == "idle") {
        measureIdle();
        return 0;
    }
    if (what == "start") {
        measureStart();
        return 0;
    }
    if (what == "ui") {
        measureSettingsWindow();
        measureSlider();
        measureSaves();
        return 0;
    }
    std::fprintf(stderr, "usage: haloric-desktop-bench lag|idle|start|ui\n");
    return 2;
}

} // namespace
} // namespace haloric

int main(int argumentCount, char** arguments)
{
    try {
        return haloric::run(argumentCount == 2 ? arguments[1] : "");
    } catch (const std::exception& error) {
        std::fprintf(stderr, "haloric-desktop-bench: %s\n", error.what());
        return 1;
    }
}
