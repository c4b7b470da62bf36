// The adapters with monitors and a tap that record what they receive.
#pragma once

#include "x11/adapters/DesktopAdapters.h"

#include <memory>
#include <vector>

namespace haloric {

inline constexpr EventMask kEverything = ~EventMask{0};

struct InputAdapters : testing::Test {
    X11Session session{WindowManager::openbox};
    DesktopAdapters adapters{session.display()};
    X11Keyboard& keyboard = adapters.keyboard;
    X11OwnWindows& ownWindows = adapters.ownWindows;
    X11InputMonitors& input = adapters.input;
    std::vector<EventType> global;
    std::vector<EventType> local;
    std::vector<TapEvent> tapped;
    Subscription globalMonitor =
        input.addGlobalMouseMonitor(kEverything, [this](EventType type) { global.push_back(type); });
    Subscription localMonitor =
        input.addLocalMouseMonitor(kEverything, [this](EventType type) { local.push_back(type); });
    std::unique_ptr<EventTap> tap =
        input.createEventTap({.mask = maskOf(EventType::keyDown) | maskOf(EventType::leftMouseUp)},
                             [this](const TapEvent& event) { tapped.push_back(event); });

    InputAdapters()
    {
        tap->addToMainRunLoop();
        tap->enable();
        session.input().moveTo(960, 540);
        adapters.settle();
    }
};

} // namespace haloric
