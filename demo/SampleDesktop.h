// The desktop of the documents' pictures: double density, rounded windows with shadows, a panel with a tray. It runs on
// a private X server and reads none of the machine's settings.
#pragma once

#include "demo/SampleTheme.h"
#include "testing/x11/TrayPanel.h"
#include "testing/x11/X11Session.h"

#include <optional>

namespace haloric {

class SampleDesktop {
public:
    static constexpr int kScale = 2; // pixels per point

    // Sizes in points. Throws std::runtime_error when a part does not start.
    SampleDesktop(int width, int height, Tone tone);

    X11Session& session() { return m_session; }
    TrayPanel& panel() { return *m_panel; }

    // The environment variables with which a program takes the desktop's colours.
    Environment environmentOfTone() const;

private:
    X11Session m_session;
    Tone m_tone;
    std::optional<ChildProcess> m_compositor;
    std::optional<TrayPanel> m_panel;
};

} // namespace haloric
