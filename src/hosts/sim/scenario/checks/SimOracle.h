// The expected overlays of the simulated desktop at rest, derived from the desktop and the settings only. Frames are in
// screen space.
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

    // False while the result is undefined: the frontmost application does not respond, or there is no screen.
    bool canTell() const;

    // The window to be highlighted, or null.
    const SimWindow* focusedWindow() const;
    std::optional<Rect> focusedFrame() const;

    // The expected frame of the highlight's window; absent when it is to be hidden.
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
