// Pictures of the sections of a scrolling form, each cut out of the screen as soon as it is completely visible.
#pragma once

#include "testing/x11/X11Session.h"

#include <vector>

namespace haloric {

// The complete sections in a picture of a form, top to bottom, with a margin around each. The form begins with a gap.
// `scale` is in pixels per point.
std::vector<ScreenImage> wholeSections(const ScreenImage& form, int scale);

// Scrolls the form at `place` (root coordinates) from its top to its end by the wheel. Returns all sections in order.
// Throws std::runtime_error when the form does not stop changing.
std::vector<ScreenImage> sectionsOf(X11Session& session, const ScreenRect& place, int scale);

} // namespace haloric
