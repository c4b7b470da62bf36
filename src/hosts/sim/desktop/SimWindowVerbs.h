// What users and applications do to windows. Frames are in global space.
#pragma once

#include "hosts/sim/desktop/SimFocus.h"
#include "hosts/sim/desktop/SimSpaces.h"

#include <string>

namespace haloric {

class SimWindowVerbs {
public:
    SimWindowVerbs(SimModel& model, SimNotifier& notifier, SimFocus& focus, SimSpaces& spaces)
        : m_model(model),
          m_notifier(notifier),
          m_focus(focus),
          m_spaces(spaces)
    {
    }

    // A new window of `app`, on the active Space, in front and focused within its application. Its number, owner
    // and Space are filled in.
    SimWindow& open(const SimApp& app, SimWindow window);
    void close(SimWindow& window);

    // Focuses a window and makes its application frontmost; goes to the window's Space when it is on another one.
    void focus(SimWindow& window);

    void setFrame(SimWindow& window, const Rect& frame);

    void minimise(SimWindow& window);
    void restore(SimWindow& window); // and focuses it
    void enterFullScreen(SimWindow& window);
    void leaveFullScreen(SimWindow& window);

    void setAlpha(SimWindow& window, double alpha) { window.alpha = alpha; }
    void setLayer(SimWindow& window, int layer) { m_model.windows.setLayer(window.number, layer); }
    void setDecoration(SimWindow& window, SimDecoration decoration, double titleBarHeight);

private:
    SimModel& m_model;
    SimNotifier& m_notifier;
    SimFocus& m_focus;
    SimSpaces& m_spaces;
};

} // namespace haloric
