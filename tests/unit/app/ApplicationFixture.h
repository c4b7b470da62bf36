// Everything that the program needs from a host, as fakes: one screen, and an application with one focused window.
#pragma once

#include "app/ApplicationDependencies.h"

#include "fakes/FakeAccessibility.h"
#include "fakes/FakeAlerts.h"
#include "fakes/FakeApplication.h"
#include "fakes/FakeApplicationCatalog.h"
#include "fakes/FakeBundle.h"
#include "fakes/FakeDisplayLinks.h"
#include "fakes/FakeFormWindows.h"
#include "fakes/FakeHotkeys.h"
#include "fakes/FakeInputMonitors.h"
#include "fakes/FakeLog.h"
#include "fakes/FakeLoginItemService.h"
#include "fakes/FakePanels.h"
#include "fakes/FakeProcesses.h"
#include "fakes/FakeScreens.h"
#include "fakes/FakeStatusItems.h"
#include "fakes/FakeToolkitWindows.h"
#include "fakes/FakeUpdaterFramework.h"
#include "fakes/FakeUserDefaults.h"
#include "fakes/FakeWindowInfoSource.h"
#include "fakes/FakeWindowServerCalls.h"
#include "fakes/FakeWorkspace.h"
#include "hosts/sim/loop/SimRunLoop.h"
#include "hosts/sim/loop/SimSerialQueues.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace haloric {

class ApplicationFixture : public testing::Test {
protected:
    using Calls = std::vector<std::string>;

    static constexpr Screen kPrimary{{0, 0, 1000, 800}, DisplayID{1}};
    static constexpr ProcessID kEditor{7};
    static constexpr WindowNumber kWindow{42};
    static constexpr Rect kBounds{100, 100, 400, 300}; // global space
    static constexpr Rect kFrame{100, 400, 400, 300};  // the same in screen space

    ApplicationFixture()
    {
        const auto window = std::make_shared<FakeAXElement>();
        window->set("AXRole", std::string("AXWindow"));
        window->set("AXMinimized", false);
        window->set("AXPosition", kBounds.origin());
        window->set("AXSize", kBounds.size());
        window->set(kWindow);
        const auto editor = std::make_shared<FakeAXElement>();
        editor->set("AXFocusedWindow", AXElement(window));
        accessibility.applications[kEditor] = editor;
        accessibility.insideQueue = [this] { return queues.isInsideBlock(); };
        windowInfo.windows->push_back(FakeWindowInfoSource::ordinary(kWindow, kEditor, kBounds));
        library.bounds[kWindow] = kBounds;
        workspace.frontmost = FrontmostApplication{kEditor, false};
    }

    // Blocks on the program's queue still run while the host exists.
    void TearDown() override { runLoop.runPosted(); }

    ApplicationDependencies platform()
    {
        return {.runLoop = runLoop,
                .serialQueues = queues,
                .displayLinks = links,
                .workspace = workspace,
                .screens = screens,
                .accessibility = accessibility,
                .windowInfoSource = windowInfo,
                .windowServerCalls = library,
                .toolkitWindows = toolkit,
                .input = input,
                .application = application,
                .alerts = alerts,
                .statusItems = statusItems,
                .formWindows = formWindows,
                .hotkeys = hotkeys,
                .loginItems = loginItems,
                .updaterFramework = updaterFramework,
                .panels = panels,
                .applicationCatalog = catalog,
                .bundle = bundle,
                .userDefaults = defaults,
                .processes = processes,
                .log = log};
    }

    SimRunLoop runLoop;
    SimSerialQueues queues{runLoop};
    FakeDisplayLinks links;
    FakeWorkspace workspace;
    FakeScreens screens{{kPrimary}};
    FakeAccessibility accessibility;
    FakeWindowInfoSource windowInfo;
    FakeWindowServerCalls library;
    FakeToolkitWindows toolkit;
    FakeInputMonitors input;
    FakeApplication application;
    FakeAlerts alerts;
    FakeStatusItems statusItems;
    FakeFormWindows formWindows;
    FakeHotkeys hotkeys;
    FakeLoginItemService loginItems;
    FakeUpdaterFramework updaterFramework;
    FakePanels panels;
    FakeApplicationCatalog catalog;
    FakeBundle bundle;
    FakeUserDefaults defaults;
    FakeProcesses processes;
    FakeLog log;
};

} // namespace haloric
