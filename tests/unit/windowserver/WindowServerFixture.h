// A bridge over a fake server that notes its calls. The test runs the main loop.
#pragma once

#include "fakes/FakeLog.h"
#include "fakes/FakeProcesses.h"
#include "fakes/FakeWindowServerCalls.h"
#include "hosts/sim/loop/SimRunLoop.h"
#include "windowserver/WindowServer.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace haloric {

class WindowServerFixture : public testing::Test {
protected:
    using Calls = std::vector<std::string>;
    using Event = WindowServerEvent;
    using Lines = std::vector<std::string>;
    using Delivery = std::pair<WindowNumber, WindowServer::Changes>;

    static constexpr const char* kEnabledLine = "WindowServer fast path: focused-window notifications enabled";
    static constexpr const char* kDeliveryLine =
        "WindowServer fast path: received focused-window movement notification";
    static constexpr const char* kFailureLine = "WindowServer notification call failed; using display-linked fallback";
    static constexpr const char* kUnavailableLine =
        "WindowServer notifications unavailable; using display-linked fallback";

    WindowServer& bridge()
    {
        if (!m_bridge)
            m_bridge = std::make_unique<WindowServer>(library, processes, loop, log);
        return *m_bridge;
    }
    void destroyBridge() { m_bridge.reset(); }

    bool watch(WindowNumber windowID)
    {
        return bridge().observe(windowID, [this](WindowNumber changed, WindowServer::Changes changes) {
            deliveries.emplace_back(changed, changes);
        });
    }

    // The calls of entries during `work`.
    Calls callsDuring(const std::function<void()>& work)
    {
        bridge();
        library.forgetCalls();
        work();
        return library.entryCalls();
    }

    static constexpr WindowNumber kWindow{42};
    static constexpr WindowNumber kOtherWindow{43};

    FakeWindowServerCalls library;
    FakeProcesses processes;
    FakeLog log;
    SimRunLoop loop;
    std::vector<Delivery> deliveries;

private:
    std::unique_ptr<WindowServer> m_bridge;
};

} // namespace haloric
