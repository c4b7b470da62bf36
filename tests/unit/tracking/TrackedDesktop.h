// A desktop of fakes in virtual time: applications with windows that Accessibility, the window list and the window
// server all report. An editor with one window is frontmost; a mail program with another window is in the background.
#pragma once

#include "fakes/FakeAccessibility.h"
#include "fakes/FakeApplication.h"
#include "fakes/FakeDisplayLinks.h"
#include "fakes/FakeInputMonitors.h"
#include "fakes/FakeLog.h"
#include "fakes/FakeProcesses.h"
#include "fakes/FakeScreens.h"
#include "fakes/FakeWindowInfoSource.h"
#include "fakes/FakeWindowServerCalls.h"
#include "fakes/FakeWorkspace.h"
#include "hosts/sim/loop/SimRunLoop.h"
#include "hosts/sim/loop/SimSerialQueues.h"

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace haloric {

struct TrackedDesktop {
    static constexpr ProcessID kOwn{1};
    static constexpr ProcessID kEditor{7};
    static constexpr ProcessID kMail{8};
    static constexpr WindowNumber kWindow{42};
    static constexpr WindowNumber kOtherWindow{43};
    static constexpr WindowNumber kMailWindow{50};
    static constexpr Rect kBounds{100, 100, 400, 300}; // global space: 100,400 400x300 in screen space
    static inline const Screen kPrimary{{0, 0, 1000, 800}, DisplayID{1}, 60, 1};
    static inline const Screen kSecondary{{1000, 0, 1000, 800}, DisplayID{2}, 120, 1};

    static constexpr WorkspaceNotification kWorkspaceNotifications[] = {WorkspaceNotification::didActivateApplication,
                                                                        WorkspaceNotification::activeSpaceDidChange,
                                                                        WorkspaceNotification::didTerminateApplication};

    TrackedDesktop()
    {
        accessibility.insideQueue = [this] { return queues.isInsideBlock(); };
        editorWindow = addWindow(kEditor, kWindow, kBounds);
        mailWindow = addWindow(kMail, kMailWindow, {500, 200, 300, 200});
        focus(kEditor, editorWindow);
        focus(kMail, mailWindow);
        makeFrontmost(kEditor);
    }

    FakeAXElementRef axApplication(ProcessID pid)
    {
        auto& app = accessibility.applications[pid];
        if (!app)
            app = std::make_shared<FakeAXElement>();
        return app;
    }

    FakeAXElementRef addWindow(ProcessID pid, WindowNumber number, const Rect& bounds)
    {
        auto window = std::make_shared<FakeAXElement>();
        auto button = std::make_shared<FakeAXElement>();
        button->set("AXPosition", Point{bounds.x + 8, bounds.y + 6});
        button->set("AXSize", Size{14, 16});
        window->set("AXRole", std::string("AXWindow"));
        window->set("AXMinimized", false);
        window->set("AXPosition", bounds.origin());
        window->set("AXSize", bounds.size());
        window->set("AXCloseButton", AXElement(button));
        window->set(number);
        window->hash = 1000 + static_cast<std::uint64_t>(number);
        windowInfo.windows->push_back(FakeWindowInfoSource::ordinary(number, pid, bounds));
        library.bounds[number] = bounds;
        return window;
    }

    void focus(ProcessID pid, const FakeAXElementRef& window)
    {
        axApplication(pid)->set("AXFocusedWindow", AXElement(window));
    }
    void focusNothing(ProcessID pid) { axApplication(pid)->fail("AXFocusedWindow", AXError::noValue); }
    void stopAnswering(ProcessID pid) { axApplication(pid)->fail("AXFocusedWindow", AXError::cannotComplete); }

    WindowInfo& info(WindowNumber number)
    {
        for (WindowInfo& candidate : *windowInfo.windows) {
            if (std::get<std::int64_t>(candidate.number) == static_cast<std::int64_t>(number))
                return candidate;
        }
        throw std::out_of_range("no such window");
    }

    // Moves or resizes a window, as far as the window server and its list are concerned.
    void place(WindowNumber number, const Rect& bounds)
    {
        info(number).bounds = bounds;
        library.bounds[number] = bounds;
    }

    void destroyWindow(WindowNumber number)
    {
        std::erase_if(*windowInfo.windows, [&](const WindowInfo& candidate) { return &candidate == &info(number); });
        library.bounds.erase(number);
    }

    void makeFrontmost(ProcessID pid) { workspace.frontmost = FrontmostApplication{pid, false}; }

    void activate(ProcessID pid)
    {
        makeFrontmost(pid);
        workspace.announce(WorkspaceNotification::didActivateApplication);
    }

    SimRunLoop loop;
    SimSerialQueues queues{loop};
    FakeDisplayLinks links;
    VideoLinks* videoLinks = nullptr;
    FakeWorkspace workspace;
    FakeScreens screens{{kPrimary, kSecondary}};
    FakeAccessibility accessibility;
    FakeWindowInfoSource windowInfo;
    FakeInputMonitors input;
    FakeApplication application;
    FakeWindowServerCalls library;
    FakeProcesses processes;
    FakeLog log;
    FakeAXElementRef editorWindow;
    FakeAXElementRef mailWindow;
};

} // namespace haloric
