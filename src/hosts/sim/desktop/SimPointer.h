// The mouse of the simulated desktop: buttons, and drags that take virtual time.
#pragma once

#include "foundation/WeakAnchor.h"
#include "hosts/sim/desktop/SimWindowVerbs.h"

#include <optional>

namespace haloric {

enum class SimButton { left = 0, right = 1, other = 2 };

class SimPointer {
public:
    static constexpr double kDefaultRate = 125; // reports a second, as of an ordinary mouse

    SimPointer(SimRunLoop& runLoop, SimModel& model, SimNotifier& notifier, SimWindowVerbs& windows)
        : m_runLoop(runLoop),
          m_model(model),
          m_notifier(notifier),
          m_windows(windows)
    {
    }

    void press(SimButton button);
    void release(SimButton button);
    void releaseAll();

    // Presses the left button, carries the window's frame to `target` (moving, resizing or both) over `duration` in
    // steps of 1 / `rate`, and releases the button. Returns at once; a drag under way ends first, where it is.
    void drag(const SimWindow& window, const Rect& target, Seconds duration, double rate = kDefaultRate);
    void endDrag();

    // The window being dragged, or null.
    SimWindow* draggedWindow() const;

private:
    struct Drag {
        WindowNumber window = WindowNumber::none;
        Rect from;
        Rect to;
        int step = 0;
        int steps = 1;
        Seconds interval{0};
    };

    void scheduleStep();
    void takeStep();
    SimMouseTarget target() const;

    SimRunLoop& m_runLoop;
    SimModel& m_model;
    SimNotifier& m_notifier;
    SimWindowVerbs& m_windows;
    std::optional<Drag> m_drag;
    std::uint64_t m_dragCount = 0;
    WeakAnchor<SimPointer> m_anchor{*this};
};

} // namespace haloric
