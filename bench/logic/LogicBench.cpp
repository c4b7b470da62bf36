// The cost of one display frame in Haloric's portable code: the tracker's tick and the overlay's pass, on fakes,
// without waits for a window server or an application.
#include "fakes/FakeAccessibility.h"
#include "fakes/FakeApplication.h"
#include "fakes/FakeDisplayLinks.h"
#include "fakes/FakeInputMonitors.h"
#include "fakes/FakeLog.h"
#include "fakes/FakeProcesses.h"
#include "fakes/FakeScreens.h"
#include "fakes/FakeToolkitWindows.h"
#include "fakes/FakeUserDefaults.h"
#include "fakes/FakeWindowInfoSource.h"
#include "fakes/FakeWorkspace.h"
#include "fakes/SilentWindowServerCalls.h"
#include "hosts/sim/loop/SimRunLoop.h"
#include "hosts/sim/loop/SimSerialQueues.h"
#include "overlay/OverlayController.h"
#include "tracking/FocusTracker.h"

#include <benchmark/benchmark.h>

#include <stdexcept>

namespace haloric {
namespace {

// A desktop with one focused window, tracked in fast mode.
class Desktop {
public:
    Desktop()
    {
        const auto window = std::make_shared<FakeAXElement>();
        window->set("AXRole", std::string("AXWindow"));
        window->set("AXMinimized", false);
        window->set(kWindow);
        const auto application = std::make_shared<FakeAXElement>();
        application->set("AXFocusedWindow", AXElement(window));
        accessibility.applications[kEditor] = application;
        workspace.frontmost = FrontmostApplication{kEditor, false};
        windowInfo.windows->push_back(FakeWindowInfoSource::ordinary(kWindow, kEditor, {100, 100, 400, 300}));
        toolkit.recordsCalls = false;

        tracker.onChange = [this](const FocusState& state) { overlays.setState(state); };
        tracker.start();
        loop.runPosted();
        if (!tracker.isFastTracking() || !tracker.state().frame)
            throw std::logic_error("the window is not tracked");
    }

    static constexpr ProcessID kEditor{7};
    static constexpr WindowNumber kWindow{42};

    SimRunLoop loop;
    SimSerialQueues queues{loop};
    FakeDisplayLinks links;
    FakeWorkspace workspace;
    FakeScreens screens{{Screen{{0, 0, 1920, 1080}, DisplayID{1}, 60, 1}}};
    FakeAccessibility accessibility;
    FakeWindowInfoSource windowInfo;
    FakeInputMonitors input;
    FakeApplication application;
    FakeToolkitWindows toolkit;
    SilentWindowServerCalls library;
    FakeProcesses processes;
    FakeLog log;
    FakeUserDefaults defaults;
    SharedWindowServer windowServer{library, processes, loop, log};
    WindowList windowList{windowInfo, screens, workspace, application.pid};
    SettingsStore store{defaults};
    OverlayController overlays{{loop, workspace, screens, toolkit, input, windowServer, windowList, log}, store};
    FocusTracker tracker{
        {loop, queues, links, workspace, screens, accessibility, windowInfo, input, application, windowServer}};
};

void tickWithoutChange(benchmark::State& state)
{
    Desktop desktop;
    for ([[maybe_unused]] auto iteration : state)
        desktop.links.frame();
}

void passWithoutChange(benchmark::State& state)
{
    Desktop desktop;
    const FocusState focused = desktop.tracker.state();
    for ([[maybe_unused]] auto iteration : state)
        desktop.overlays.setState(focused);
}

// The window moves at each frame: the tick, the published state, and the pass that moves the highlight.
void tickAndPassWithMovement(benchmark::State& state)
{
    Desktop desktop;
    for ([[maybe_unused]] auto iteration : state) {
        desktop.library.bounds.x = desktop.library.bounds.x > 150 ? 100 : 200;
        desktop.links.frame();
    }
}

BENCHMARK(tickWithoutChange);
BENCHMARK(passWithoutChange);
BENCHMARK(tickAndPassWithMovement);

} // namespace
} // namespace haloric

BENCHMARK_MAIN();
