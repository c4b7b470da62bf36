// What happens to screens: plugged in, unplugged, resized, rearranged. Frames are in global space.
#pragma once

#include "hosts/sim/desktop/SimWindowVerbs.h"

namespace haloric {

class SimScreenVerbs {
public:
    SimScreenVerbs(SimModel& model, SimNotifier& notifier, SimWindowVerbs& windows)
        : m_model(model),
          m_notifier(notifier),
          m_windows(windows)
    {
    }

    void plug(const SimScreen& screen);

    // Windows that were on it move to the primary screen. When the primary screen is unplugged, the next one takes its
    // place, and becomes the origin of global space.
    void unplug(DisplayID id);

    void resize(DisplayID id, Size size);

    // Makes it the origin of global space. Nothing moves on any screen.
    void makePrimary(DisplayID id);

    // The same pixels, at another number of them a point.
    void setScale(DisplayID id, double pixelsPerPoint);

private:
    void changed();
    void rebaseOrigin();
    void bringWindowsBack();

    SimModel& m_model;
    SimNotifier& m_notifier;
    SimWindowVerbs& m_windows;
};

} // namespace haloric
