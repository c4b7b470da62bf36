// What a person who looks at the simulated desktop expects to see once everything has come to rest, worked out from
// the desktop and the settings alone. Frames are in screen space.
#pragma once

#include "hosts/sim/desktop/SimDesktop.h"
#include "overlay/AppDimView.h"
#include "settings/Settings.h"

#include <optional>
#include <vector>

namespace haloric {

class SimOracle {
public:
    SimOracle(const SimModel& model, const Settings& settings) : m_model(model), m_settings(settings) {}

    // False while nobody can tell: the frontmost application does not respond, or there is no screen.
    bool canTell() const;

    // The window that deserves a highlight, or null.
    const SimWindow* focusedWindow() const;
    std::optional<Rect> focusedFrame() const;

    // Where the highlight's window belongs; absent when none is to be seen.
    std::optional<Rect> highlightFrame() const;

    // How far the highlight's window reaches beyond the focused one, in points.
    double margin() const;

    // What per-application dimming paints on a screen, back to front, in the screen's coordinates.
    std::vector<AppDimView::Window> appDimWindows(const SimScreen& screen) const;

private:
    bool isFocused(const SimWindow& window, const Rect& focused) const;

    const SimModel& m_model;
    const Settings& m_settings;
};

} // namespace haloric
