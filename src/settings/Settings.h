// Everything the user can adjust, as one value. Lengths are in points, opacities are fractions 0...1. The record
// enforces no range: its readers accept any value.
#pragma once

#include "settings/DimScope.h"
#include "settings/EffectColor.h"
#include "settings/RGBA.h"

#include <string>
#include <vector>

namespace haloric {

struct Settings {
    // The fields stand in the order in which they are encoded, decoded and compared; their initial values are the
    // defaults.
    RGBA accent = kDefaultAccent;
    double cornerRadius = 11.0;
    bool borderEnabled = true;
    EffectColor borderColor;
    double borderWidth = 3.0;
    bool glowEnabled = true;
    EffectColor glowColor;
    double glowRadius = 18.0;
    double glowOpacity = 0.8;
    bool tintEnabled = false;
    EffectColor tintColor;
    double tintOpacity = 0.25;
    double tintHeight = 28.0; // used only when the title bar cannot be measured
    bool dimEnabled = false;
    RGBA dimColor{0, 0, 0, 1};
    double dimOpacity = 0.35;
    DimScope dimScope = DimScope::allWindows;
    std::vector<std::string> dimApps; // bundle identifiers, in the order in which they were added
    bool pulseEnabled = true;
    bool hideWhenFullScreen = false;
    bool hotkeyEnabled = false;

    // The record with every field at its default.
    static const Settings& defaults();

    // The colour in which an effect is drawn: the accent, or the effect's own.
    const RGBA& resolve(const EffectColor& effect) const { return effect.useAccent ? accent : effect.custom; }

    friend bool operator==(const Settings&, const Settings&) = default;
};

} // namespace haloric
