// The highlight around the focused window: glow, title-bar tint, border and pulse ring, in this order from the back
// to the front. Main thread. The owner sets the fields and marks the window for display.
#pragma once

#include "foundation/Color.h"
#include "platform/ContentView.h"
#include "settings/Settings.h"

#include <optional>
#include <vector>

namespace haloric {

class HighlightView final : public ContentView {
public:
    // How far the glow is drawn from the window, in points; zero or less for none. Stored radii have no limit. A larger
    // one is drawn as this one, twice what the settings window offers: its cost in time and memory is bounded.
    static constexpr double kLargestGlowRadius = 128;
    static double glowReach(const Settings& settings);

    // The rectangles (view space) in which two positions of the pulse can differ, so that a step of the pulse
    // redraws little: four bars along the ring's sides and four squares over its corners; none without a ring.
    std::vector<Rect> pulseDamage(double oldProgress, double newProgress) const;

    bool isOpaque() const override { return false; }
    bool isFlipped() const override { return false; }
    void draw(Canvas& canvas, const Rect& bounds) override;

    // Does not depend on `pulseProgress`, so that a host's surfaces outlast a pulse.
    std::vector<Rect> paintedArea(const Rect& bounds) const override;

    Settings settings;
    Rect windowRect;                  // the focused window, view space
    std::optional<double> tintHeight; // points of the title bar to tint
    double pulseProgress = 0;         // 0...1; a ring shows strictly between

private:
    void drawGlow(Canvas& canvas, const Rect& bounds) const;
    void drawTint(Canvas& canvas) const;
    void drawBorder(Canvas& canvas) const;
    void drawPulse(Canvas& canvas) const;
    bool isEmpty() const;
    bool hasGlow() const;
    bool hasTint() const;
    bool hasBorder() const;
    bool showsPulse(double progress) const;
    Color color(const EffectColor& effect) const;
    double corner() const;
};

} // namespace haloric
