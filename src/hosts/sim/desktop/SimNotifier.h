// Delivers what happens on the simulated desktop to subscribers: never inside the verb that caused it, but as a
// separate event of the main loop, as real notifications arrive. With jitter, sources overtake each other;
// notifications of one source keep their order.
#pragma once

#include "foundation/Publisher.h"
#include "hosts/sim/desktop/SimModel.h"
#include "hosts/sim/loop/SimRunLoop.h"
#include "platform/InputMonitors.h"
#include "platform/WindowServerEvents.h"
#include "platform/Workspace.h"

#include <array>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>

namespace haloric {

enum class SimMouseTarget { otherApplication, ownWindow };

class SimNotifier {
public:
    SimNotifier(SimRunLoop& runLoop, SimModel& model) : m_runLoop(runLoop), m_model(model) {}

    // Published inside an event of the main loop.
    Publisher<WorkspaceNotification> workspace;
    Publisher<> screens;
    Publisher<ProcessID, std::string> accessibility;
    Publisher<WindowServerEvent, WindowNumber> windowServer;
    Publisher<EventType, SimMouseTarget> mouse;
    Publisher<TapEvent> tap;

    void postWorkspace(WorkspaceNotification notification);
    void postScreens();
    void postWindowServer(WindowServerEvent event, WindowNumber window);
    void postMouse(EventType type, SimMouseTarget target);
    void postTap(const TapEvent& event);

    // Whether a change of the screens has not been published yet.
    bool screensPending() const { return m_pendingScreens > 0; }

    // Held back while the application does not respond.
    void postAccessibility(ProcessID pid, std::string_view name);
    void releaseHeld(SimApp& app);

    // Notifies the window server's subscribers of windows that have left the screen. Every verb ends with this.
    void postVanished();

    void setJitter(std::uint64_t seed, Seconds maximum);

private:
    enum class Source { workspace, screens, accessibility, windowServer, input, count };

    void post(Source source, Task task);

    SimRunLoop& m_runLoop;
    SimModel& m_model;
    std::mt19937_64 m_random;
    Seconds m_jitter{0};
    int m_pendingScreens = 0;
    std::array<SimRunLoop::Nanoseconds, static_cast<std::size_t>(Source::count)> m_last{};
};

} // namespace haloric
