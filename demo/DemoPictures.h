// What the demonstration's desktop and its sample windows look like. Sizes are in points, `scale` in pixels a point.
#pragma once

#include "testing/x11/ScreenImage.h"

namespace haloric {

ScreenImage paintDesktop(int width, int height, int scale = 1);
ScreenImage paintNotes(int width, int height, int scale = 1);
ScreenImage paintGallery(int width, int height, int scale = 1);
ScreenImage paintTerminal(int width, int height, int scale = 1);

// The icon of an application, `size` points wide and high: a sign on a coloured tile.
enum class SampleApplication { notes, gallery, terminal };
ScreenImage paintIcon(SampleApplication application, int size, int scale = 1);

} // namespace haloric
