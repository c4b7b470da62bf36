// The windows that stand for a user's own, each of a process of its own.
#pragma once

#include "demo/DemoPictures.h"
#include "testing/x11/X11Session.h"

#include <filesystem>
#include <memory>
#include <string>

namespace haloric {

// Opens a window whose inside is at `content`, in points. Throws std::runtime_error when it does not appear.
std::unique_ptr<TestClient> openSample(X11Session& session, SampleApplication application, const ScreenRect& content,
                                       int scale = 1);

// What the program knows the application by, as long as no desktop entry says otherwise.
std::string classOf(SampleApplication application);

// Desktop entries with names and icons for all of them, below `data`, which stands for XDG_DATA_HOME. Their
// identifiers are the classes.
void installSamples(const std::filesystem::path& data);

} // namespace haloric
