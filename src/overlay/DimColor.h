// The colour of the dimming.
#pragma once

#include "foundation/Color.h"
#include "settings/Settings.h"

namespace haloric {

// Never the accent; the opacity stands in for the stored colour's own alpha.
inline Color dimColor(const Settings& settings) { return colorFrom(settings.dimColor).withAlpha(settings.dimOpacity); }

} // namespace haloric
