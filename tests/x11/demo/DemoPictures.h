// What the demonstration's desktop and its sample windows look like.
#pragma once

#include "x11/support/ScreenImage.h"

namespace haloric {

ScreenImage paintDesktop(int width, int height);
ScreenImage paintNotes(int width, int height);
ScreenImage paintGallery(int width, int height);
ScreenImage paintTerminal(int width, int height);

} // namespace haloric
