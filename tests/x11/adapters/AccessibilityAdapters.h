// The Accessibility adapter under one window manager, with an observer that records its notifications.
#pragma once

#include "x11/adapters/DesktopAdapters.h"

#include <array>
#include <memory>
#include <string>
#include <vector>

#include <unistd.h>

namespace haloric {

inline constexpr std::array kNames{"AXFocusedWindowChanged", "AXMainWindowChanged",      "AXWindowMoved",
                                   "AXWindowResized",        "AXWindowMiniaturized",     "AXWindowDeminiaturized",
                                   "AXWindowCreated",        "AXUIElementDestroyed",     "AXApplicationHidden",
                                   "AXApplicationShown",     "AXFocusedUIElementChanged"};

inline const ProcessID kSelf{getpid()}; // all test windows belong to this process

class AccessibilityAdapters : public testing::TestWithParam<WindowManager> {
protected:
    AXElement focus(TestClient& client)
    {
        EXPECT_TRUE(client.showFocused());
        EXPECT_TRUE(adapters.waitUntil([&] { return adapters.focusedWindow() == client.window(); }));
        return adapters.focusedElement(kSelf);
    }

    void observe(ProcessID pid)
    {
        makeObserver(pid);
        observer->addToMainRunLoop();
    }

    void makeObserver(ProcessID pid)
    {
        observer =
            adapters.accessibility.createObserver(pid, [this](std::string_view name) { heard.emplace_back(name); });
        const AXElement application = adapters.accessibility.createApplicationElement(pid);
        for (const char* name : kNames)
            EXPECT_EQ(observer->addNotification(application, name), AXError::success);
    }

    // An observer made before, and installed after, the focus went to another window of its application.
    void makeObserverOvertakenByFocus(TestClient& first, TestClient& second)
    {
        ASSERT_TRUE(adapters.appear(second));
        ASSERT_TRUE(adapters.appear(first));
        makeObserver(kSelf);
        ASSERT_TRUE(second.focus());
        ASSERT_TRUE(adapters.waitUntil([&] { return adapters.focusedWindow() == second.window(); }));
        for (int turn = 0; turn < 5; ++turn)
            adapters.settle(); // nothing more comes from the server
        ASSERT_TRUE(heard.empty());
        observer->addToMainRunLoop();
    }

    // The window keeps its rectangle, and has another title bar from now on.
    static void markAsDrawingItsTitleBar(TestClient& client)
    {
        client.connection().setValues(client.window(), "_GTK_FRAME_EXTENTS", XCB_ATOM_CARDINAL, {0, 0, 0, 0});
        client.connection().synchronize();
    }

    bool hears(std::string_view name)
    {
        return adapters.waitUntil([&] { return std::ranges::find(heard, name) != heard.end(); });
    }

    X11Session session{GetParam()};
    DesktopAdapters adapters{session.display()};
    std::vector<std::string> heard;
    std::unique_ptr<AXObserver> observer;
};

} // namespace haloric
