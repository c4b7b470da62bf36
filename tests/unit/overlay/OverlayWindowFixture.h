// An overlay window between a fake toolkit and a fake window server, on two screens side by side.
#pragma once

#include "overlay/OverlayWindow.h"

#include "fakes/FakeLog.h"
#include "fakes/FakeProcesses.h"
#include "fakes/FakeScreens.h"
#include "fakes/FakeToolkitWindows.h"
#include "fakes/FakeWindowServerCalls.h"
#include "hosts/sim/loop/SimRunLoop.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace haloric {

class OverlayWindowFixture : public testing::Test {
protected:
    using Positioning = OverlayWindow::Positioning;
    using Calls = std::vector<std::string>;

    static constexpr Screen kPrimary{{0, 0, 1000, 800}, DisplayID{1}};
    static constexpr Screen kSecondary{{1000, 0, 1000, 800}, DisplayID{2}};
    static constexpr Rect kStart{100, 100, 300, 200};
    static constexpr Rect kMoved{105, 93, 300, 200};
    static constexpr const char* kUnavailable =
        "WindowServer overlay transactions unavailable; using AppKit positioning";
    static constexpr const char* kVerified = "WindowServer fast path: direct overlay position verified";
    static constexpr const char* kMismatch = "WindowServer overlay position did not match; using AppKit positioning";

    OverlayWindowFixture() { makeWindow(); }

    void makeWindow()
    {
        window =
            std::make_unique<OverlayWindow>(OverlayWindowDependencies{runLoop, screens, toolkit, windowServer, log});
        record = toolkit.windows.back();
    }

    // Shows the window at `frame`, as the controller does, and forgets how.
    void show(const Rect& frame = kStart)
    {
        window->positionHighlight(frame, Positioning::synchronizeWithAppKit);
        window->orderFront();
        library.bounds[WindowNumber{static_cast<std::uint32_t>(record->number)}] =
            flippedVertically(frame, kPrimary.frame.maxY());
        forget();
    }

    void forget()
    {
        toolkit.forgetCalls();
        library.forgetCalls();
        log.lines.clear();
    }

    void moveTo(const Rect& target) { window->positionHighlight(target, Positioning::fastPathAllowed); }

    SimRunLoop runLoop;
    FakeScreens screens{{kPrimary, kSecondary}};
    FakeToolkitWindows toolkit;
    FakeWindowServerCalls library;
    FakeProcesses processes;
    FakeLog log;
    SharedWindowServer windowServer{library, processes, runLoop, log};
    std::unique_ptr<OverlayWindow> window;
    FakeToolkitWindows::Record record;
};

} // namespace haloric
