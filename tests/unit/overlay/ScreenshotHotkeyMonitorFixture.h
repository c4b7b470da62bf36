// A monitor of the screenshot shortcuts, with keys and mouse buttons that the test sends.
#pragma once

#include "overlay/ScreenshotHotkeyMonitor.h"

#include "fakes/FakeInputMonitors.h"
#include "hosts/sim/loop/SimRunLoop.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace haloric {

class ScreenshotHotkeyMonitorFixture : public testing::Test {
protected:
    using Reports = std::vector<bool>;
    using Calls = std::vector<std::string>;

    static constexpr std::uint64_t kShift = 0x20000;
    static constexpr std::uint64_t kControl = 0x40000;
    static constexpr std::uint64_t kOption = 0x80000;
    static constexpr std::uint64_t kCommand = 0x100000;

    static constexpr std::int64_t kKey3 = 20;
    static constexpr std::int64_t kKey4 = 21;
    static constexpr std::int64_t kKey5 = 23;
    static constexpr std::int64_t kEscape = 53;

    ScreenshotHotkeyMonitorFixture() { makeMonitor(); }

    void makeMonitor()
    {
        monitor = std::make_unique<ScreenshotHotkeyMonitor>(runLoop, input);
        monitor->onChange = [this](bool visible) { reports.push_back(visible); };
    }

    void key(std::int64_t code, std::uint64_t flags = 0) { input.sendToTap({EventType::keyDown, code, flags}); }
    void mouseUp() { input.sendToTap({EventType::leftMouseUp, 0, 0}); }

    void activate()
    {
        key(kKey4, kCommand | kShift);
        runLoop.runPosted();
    }

    SimRunLoop runLoop;
    FakeInputMonitors input;
    Reports reports;
    std::unique_ptr<ScreenshotHotkeyMonitor> monitor;
};

} // namespace haloric
