// A simulated desktop with one screen, and what it reported since the last `settle`.
#pragma once

#include "hosts/sim/desktop/SimDesktop.h"

#include <string>
#include <vector>

namespace haloric {

struct SimDesktopFixture {
    SimDesktop desktop;
    std::vector<std::string> reported; // Accessibility notifications, as "application name"
    std::vector<std::pair<WindowServerEvent, WindowNumber>> serverEvents;
    std::vector<WorkspaceNotification> workspace;
    Subscription subscriptions[3];

    SimDesktopFixture()
    {
        desktop.model.screens = {{DisplayID{1}, {0, 0, 1440, 900}, 60, 1}};
        subscriptions[0] = desktop.notifier.accessibility.subscribe([this](ProcessID pid, const std::string& name) {
            reported.push_back(desktop.model.app(pid) ? desktop.model.app(pid)->name + " " + name : name);
        });
        subscriptions[1] = desktop.notifier.windowServer.subscribe(
            [this](WindowServerEvent event, WindowNumber window) { serverEvents.emplace_back(event, window); });
        subscriptions[2] = desktop.notifier.workspace.subscribe(
            [this](WorkspaceNotification notification) { workspace.push_back(notification); });
    }

    SimApp& launch(const std::string& name) { return desktop.applications.launch(name, "org.example." + name); }

    SimWindow& open(SimApp& app, const std::string& name, const Rect& frame = {100, 100, 400, 300})
    {
        SimWindow window;
        window.name = name;
        window.frame = frame;
        return desktop.windows.open(app, window);
    }

    // An overlay as the window server holds it; `frame` is in global space.
    SimWindow& addOverlay(const Rect& frame)
    {
        SimWindow window;
        window.owner = SimModel::kOwnProcess;
        window.frame = frame;
        window.overlay = true;
        return desktop.model.windows.add(window);
    }

    // Runs what is due and clears the records of it.
    void settle()
    {
        desktop.runLoop.runFor(Seconds(0.1));
        reported.clear();
        serverEvents.clear();
        workspace.clear();
    }

    void run() { desktop.runLoop.runFor(Seconds(0.1)); }

    std::string frontmost() const
    {
        const SimApp* app = desktop.model.frontmostApp();
        return app ? app->name : "";
    }

    std::string focusedIn(const SimApp& app) const
    {
        const SimWindow* window = desktop.model.windows.find(app.focused);
        return window ? window->name : "";
    }
};

} // namespace haloric
