// The pictures of the demonstration's desktop and sample windows. Sizes are in points, `scale` in pixels per point.
#pragma once

#include "testing/x11/ScreenImage.h"

namespace haloric {

ScreenImage paintDesktop(int width, int height, int scale = 1);
ScreenImage paintNotes(int width, int height, int scale = 1);
ScreenImage paintGallery(int width, int height, int scale = 1);
ScreenImage paintTerminal(int width, int height, int scale = 1);

// The icon of an application, `size` points wide and high.
enum class SampleApplication { notes, gallery, terminal };
ScreenImage paintIcon(SampleApplication application, int size, int scale = 1);

} // namespace haloric
