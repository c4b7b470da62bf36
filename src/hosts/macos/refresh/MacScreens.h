// AppKit's screens, read once and again after each change, so that asking costs nothing. They count as changed when the
// displays wake as well: a display link that was made before they slept may never tick again, and a change has a new
// one made. Made once the application object exists.
#pragma once

#include "foundation/Publisher.h"
#include "platform/Screens.h"

#include <vector>

@class NSScreen;

namespace haloric {

class MacScreens final : public Screens {
public:
    MacScreens();

    std::span<const Screen> all() const override { return m_screens; }
    Subscription onParametersChange(Task handler) override;

    // The NSScreen of a screen: by its display number, which stays when the frame changes, else by its frame.
    // Null when that screen is gone.
    static NSScreen* find(const Screen& screen);

private:
    void read();

    std::vector<Screen> m_screens;
    Publisher<> m_changed;
    Subscription m_parametersChange;
    Subscription m_wake;
};

} // namespace haloric
