// The colour choice of one effect. The custom colour is kept while the accent is in use, so that switching back
// brings it up again.
#pragma once

#include "settings/RGBA.h"

namespace haloric {

inline constexpr RGBA kDefaultAccent{0.04, 0.52, 1.0, 1.0};

struct EffectColor {
    bool useAccent = true;
    RGBA custom = kDefaultAccent;

    friend bool operator==(const EffectColor&, const EffectColor&) = default;
};

} // namespace haloric
