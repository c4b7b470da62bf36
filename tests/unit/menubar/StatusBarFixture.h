// A status bar controller with everything that it needs, as fakes.
#pragma once

#include "menubar/StatusBarController.h"

#include "fakes/FakeAccessibility.h"
#include "fakes/FakeAlerts.h"
#include "fakes/FakeApplication.h"
#include "fakes/FakeApplicationCatalog.h"
#include "fakes/FakeBundle.h"
#include "fakes/FakeDisplayLinks.h"
#include "fakes/FakeFormWindows.h"
#include "fakes/FakeInputMonitors.h"
#include "fakes/FakeLog.h"
#include "fakes/FakeLoginItemService.h"
#include "fakes/FakePanels.h"
#include "fakes/FakeProcesses.h"
#include "fakes/FakeScreens.h"
#include "fakes/FakeStatusItems.h"
#include "fakes/FakeUpdaterFramework.h"
#include "fakes/FakeUserDefaults.h"
#include "fakes/FakeWindowInfoSource.h"
#include "fakes/FakeWindowServerCalls.h"
#include "fakes/FakeWorkspace.h"
#include "hosts/sim/loop/SimRunLoop.h"
#include "hosts/sim/loop/SimSerialQueues.h"
#include "menubar/UpdaterManager.h"
#include "settings/LaunchAtLogin.h"
#include "tracking/FocusTracker.h"
#include "windowserver/SharedWindowServer.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace haloric {

class StatusBarFixture : public testing::Test {
protected:
    using Calls = std::vector<std::string>;

    void make()
    {
        controller = std::make_unique<StatusBarController>(
            StatusBarDependencies{.runLoop = runLoop,
                                  .statusItems = statusItems,
                                  .formWindows = formWindows,
                                  .panels = panels,
                                  .alerts = alerts,
                                  .application = application,
                                  .accessibility = accessibility,
                                  .workspace = workspace,
                                  .bundle = bundle,
                                  .launchAtLogin = launchAtLogin,
                                  .updaterManager = [this]() -> UpdaterManager& {
                                      return updater ? *updater : updater.emplace(bundle, updaterFramework);
                                  },
                                  .settingsView = {bundle, catalog, loginItems, accessibility, workspace, panels,
                                                   alerts, application, [this] { ++restarts; }}},
            store, tracker);
    }

    FakeStatusItems::Record& item() { return *statusItems.items.at(0); }
    FakeFormWindows::Record& window() { return *formWindows.windows.at(0); }

    // The toggle of that id in the settings window.
    FormToggle toggle(const std::string& label)
    {
        for (const FormSection& section : window().form.sections)
            for (const FormRow& row : section.rows)
                if (const auto* found = std::get_if<FormToggle>(&row.control); found && found->label == label)
                    return *found;
        ADD_FAILURE() << "no toggle " << label;
        return {};
    }

    SimRunLoop runLoop;
    SimSerialQueues queues{runLoop};
    FakeDisplayLinks links;
    FakeWorkspace workspace;
    FakeScreens screens{{Screen{{0, 0, 1000, 800}, DisplayID{1}}}};
    FakeAccessibility accessibility;
    FakeWindowInfoSource windowInfo;
    FakeWindowServerCalls library;
    FakeInputMonitors input;
    FakeApplication application;
    FakeAlerts alerts;
    FakeBundle bundle;
    FakeUserDefaults defaults;
    FakeProcesses processes;
    FakeLog log;
    FakeStatusItems statusItems;
    FakeFormWindows formWindows;
    FakePanels panels;
    FakeLoginItemService loginItems;
    FakeApplicationCatalog catalog;
    FakeUpdaterFramework updaterFramework;

    SharedWindowServer windowServer{library, processes, runLoop, log};
    FocusTracker tracker{FocusTrackerDependencies{runLoop, queues, links, workspace, screens, accessibility, windowInfo,
                                                  input, application, windowServer}};
    SettingsStore store{defaults};
    LaunchAtLogin launchAtLogin{bundle, loginItems};
    std::optional<UpdaterManager> updater;
    int restarts = 0;
    std::unique_ptr<StatusBarController> controller;
};

} // namespace haloric
