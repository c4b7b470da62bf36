// What the walks share: to wait until a desktop is still, and to keep a picture of it.
#pragma once

#include "testing/x11/Require.h"
#include "testing/x11/X11Session.h"

#include <filesystem>
#include <string>

namespace haloric {

// Waits until the screen has stopped changing, and gives its picture. Throws when it does not come to rest.
ScreenImage settledScreen(X11Session& session);
ScreenImage settledScreen(X11Session& session, const ScreenRect& area);

// Writes `picture` to `file` and says so on standard output.
void keepPicture(const ScreenImage& picture, const std::filesystem::path& file, const std::string& description);

} // namespace haloric
