// Steps shared by both demonstrations. Each throws std::runtime_error when it fails.
#pragma once

#include "testing/x11/HaloricProcess.h"
#include "testing/x11/Require.h"
#include "testing/x11/X11Session.h"

#include <filesystem>
#include <string>

namespace haloric {

// Waits until the screen, or `area` of it, has not changed for half a second. Returns its picture.
ScreenImage settledScreen(X11Session& session);
ScreenImage settledScreen(X11Session& session, const ScreenRect& area);

// Waits for the highlight of `frame`.
void requireHighlight(HaloricProcess& haloric, const ScreenRect& frame);

// Ends the program and requires exit code 0.
void stop(HaloricProcess& haloric);

// Writes `picture` to `file` and prints its path and `description`.
void keepPicture(const ScreenImage& picture, const std::filesystem::path& file, const std::string& description);

} // namespace haloric
