// Pictures of the sections of a form that scrolls, each cut out of the screen as soon as it is wholly in view.
#pragma once

#include "testing/x11/X11Session.h"

#include <vector>

namespace haloric {

// The sections that a picture of a form shows from edge to edge, from top to bottom, with a margin around each. The
// form begins with what lies between sections; `scale` is in pixels a point.
std::vector<ScreenImage> wholeSections(const ScreenImage& form, int scale);

// Scrolls the form at `place` from its top to its end by the wheel; all its sections in their order. Throws when the
// form does not come to rest.
std::vector<ScreenImage> sectionsOf(X11Session& session, const ScreenRect& place, int scale);

} // namespace haloric
