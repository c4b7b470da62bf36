// An overlay controller on a fake desktop with two screens.
#pragma once

#include "overlay/OverlayController.h"

#include "fakes/FakeInputMonitors.h"
#include "fakes/FakeLog.h"
#include "fakes/FakeProcesses.h"
#include "fakes/FakeScreens.h"
#include "fakes/FakeToolkitWindows.h"
#include "fakes/FakeUserDefaults.h"
#include "fakes/FakeWindowInfoSource.h"
#include "fakes/FakeWindowServerCalls.h"
#include "fakes/FakeWorkspace.h"
#include "hosts/sim/loop/SimRunLoop.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace haloric {

class OverlayControllerFixture : public testing::Test {
protected:
    using Calls = std::vector<std::string>;
    using Record = FakeToolkitWindows::Record;

    static constexpr Screen kPrimary{{0, 0, 1000, 800}, DisplayID{1}};
    static constexpr Screen kSecondary{{1000, 100, 1200, 900}, DisplayID{2}};
    static constexpr ProcessID kOwnPID{1};
    static constexpr ProcessID kPID{7};
    static constexpr Rect kFocused{100, 100, 300, 200};

    OverlayControllerFixture() { makeController(); }

    void makeController()
    {
        controller.reset();
        toolkit.windows.clear();
        controller = std::make_unique<OverlayController>(
            OverlayDependencies{runLoop, workspace, screens, toolkit, input, windowServer, windowList, log}, store);
        runLoop.runPosted();
    }

    static FocusState focused(const Rect& frame = kFocused, std::uint64_t windowID = 42, ProcessID pid = kPID)
    {
        return {frame, pid, WindowIdentity{windowID}, FocusState::TitleBar::height(28)};
    }

    // Changes the settings and lets them arrive.
    template <class Edit>
    void edit(Edit change)
    {
        store.update(change);
        runLoop.runPosted();
    }

    // The windows in the order of their making: the highlight, then for each screen a dim and an app-dim window.
    Record highlight() const { return toolkit.windows.at(0); }
    Record dim(std::size_t screen) const { return toolkit.windows.at(1 + 2 * screen); }
    Record appDim(std::size_t screen) const { return toolkit.windows.at(2 + 2 * screen); }

    bool isOnTop(const Record& record) const { return !toolkit.stack.empty() && toolkit.stack.back() == record.get(); }
    bool anythingVisible() const { return !toolkit.stack.empty(); }
    std::size_t listReadings() const { return windowInfo.calls.size(); }

    // A window of the list, given in screen space.
    static WindowInfo listed(std::uint32_t id, ProcessID owner, const Rect& rect)
    {
        return FakeWindowInfoSource::ordinary(WindowNumber{id}, owner, flippedVertically(rect, kPrimary.frame.maxY()));
    }

    SimRunLoop runLoop;
    FakeWorkspace workspace;
    FakeScreens screens{{kPrimary, kSecondary}};
    FakeToolkitWindows toolkit;
    FakeInputMonitors input;
    FakeWindowServerCalls library;
    FakeProcesses processes;
    FakeLog log;
    FakeWindowInfoSource windowInfo;
    FakeUserDefaults defaults;
    SharedWindowServer windowServer{library, processes, runLoop, log};
    WindowList windowList{windowInfo, screens, workspace, kOwnPID};
    SettingsStore store{defaults};
    std::unique_ptr<OverlayController> controller;
};

} // namespace haloric
