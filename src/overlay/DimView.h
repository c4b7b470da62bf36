// Dims a whole screen but for a rounded hole where the focused window is. Main thread. The owner sets the fields
// and marks the window for display; it keeps the window ordered out when this is not the scope in use.
#pragma once

#include "platform/ContentView.h"
#include "settings/Settings.h"

#include <array>
#include <optional>
#include <vector>

namespace haloric {

class DimView final : public ContentView {
public:
    bool isOpaque() const override { return false; }
    bool isFlipped() const override { return false; }
    void draw(Canvas& canvas, const Rect& bounds) override;
    std::vector<Rect> paintedArea(const Rect& bounds) const override;

    // Where the view looks different after the hole has moved from one place to another; they may overlap.
    static std::array<Rect, 2> holeDamage(const Rect& oldHole, const Rect& newHole);

    Settings settings;
    std::optional<Rect> holeRect; // view space

private:
    bool hasHole(const Rect& bounds) const;
};

} // namespace haloric
