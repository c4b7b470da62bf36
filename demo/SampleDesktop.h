// A desktop as users have theirs, for the pictures of the documentation: double density, round windows with shadows, a
// panel with a tray. All on a private server; nothing of this machine's own settings is read.
#pragma once

#include "demo/SampleTheme.h"
#include "testing/x11/TrayPanel.h"
#include "testing/x11/X11Session.h"

#include <optional>

namespace haloric {

class SampleDesktop {
public:
    static constexpr int kScale = 2; // pixels a point

    // In points. Throws std::runtime_error when a part does not start.
    SampleDesktop(int width, int height, Tone tone);

    X11Session& session() { return m_session; }
    TrayPanel& panel() { return *m_panel; }

    // What a program must find in its environment to look as the desktop does.
    Environment environmentOfTone() const;

private:
    X11Session m_session;
    Tone m_tone;
    std::optional<ChildProcess> m_compositor;
    std::optional<TrayPanel> m_panel;
};

} // namespace haloric
