// The sample windows, each owned by a separate process.
#pragma once

#include "demo/DemoPictures.h"
#include "testing/x11/X11Session.h"

#include <filesystem>
#include <memory>
#include <string>

namespace haloric {

// Opens a window with its inside at `content` (points on the root). Throws std::runtime_error when it does not appear.
std::unique_ptr<TestClient> openSample(X11Session& session, SampleApplication application, const ScreenRect& content,
                                       int scale = 1);

// The window class, by which the program identifies the application.
std::string classOf(SampleApplication application);

// Writes desktop entries with names and icons for all samples below `data`, the desktop's XDG_DATA_HOME. Their
// identifiers are the window classes.
void installSamples(const std::filesystem::path& data);

} // namespace haloric
