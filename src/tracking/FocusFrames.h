// A window's frame in screen space, from the window server's private interface if it answers, else from the public
// window list. Absent without a screen, and for numbers that are not finite. Main thread.
#pragma once

#include "foundation/Geometry.h"
#include "foundation/Ids.h"
#include "platform/Screens.h"
#include "platform/WindowInfoSource.h"

#include <optional>

namespace haloric {

class SharedWindowServer;

class FocusFrames {
public:
    // The adapters outlive this object.
    FocusFrames(SharedWindowServer& windowServer, WindowInfoSource& windowInfo, const Screens& screens)
        : m_windowServer(windowServer),
          m_windowInfo(windowInfo),
          m_screens(screens)
    {
    }

    // From global space (origin top left of the primary display, y downward) into screen space.
    std::optional<Rect> frame(const Rect& globalRect) const;

    std::optional<Rect> windowServerFrame(WindowNumber windowID) const;

    // The frame of any window; absent when it is gone. No allocation while the window server answers.
    std::optional<Rect> cgFrame(WindowNumber windowID) const;

    // The frame of a window of layer 0 that `pid` owns; absent for every other.
    std::optional<Rect> ordinaryWindowFrame(WindowNumber windowID, ProcessID pid) const;

private:
    std::optional<Rect> frame(const WindowInfo& entry) const;

    SharedWindowServer& m_windowServer;
    WindowInfoSource& m_windowInfo;
    const Screens& m_screens;
};

} // namespace haloric
