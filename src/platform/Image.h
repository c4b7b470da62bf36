// Pictures in menus and forms, described as data: drawn by the program, or fetched by the host.
#pragma once

#include "foundation/Color.h"
#include "foundation/Geometry.h"

#include <functional>
#include <string>
#include <variant>

namespace haloric {

class Canvas;

// Colours of the system's current appearance, at the time of drawing.
struct SystemColors {
    Color separator;
};

// A picture that the program draws. The host calls `draw` for each size and appearance that it needs, on the main
// thread, and may keep the result.
struct DrawnImage {
    Size size;               // points
    bool isTemplate = false; // only its opacity counts: the host colours it to suit its background
    bool isFlipped = false;  // the canvas has its origin at the top left, y downward
    std::function<void(Canvas&, const SystemColors&)> draw;
};

// The picture that the desktop shows for the file of that path.
struct FileIcon {
    std::string path;
    friend bool operator==(const FileIcon&, const FileIcon&) = default;
};

// One of the system's symbols, by its name on macOS.
struct SymbolImage {
    std::string name;
    friend bool operator==(const SymbolImage&, const SymbolImage&) = default;
};

// std::monostate: an empty picture.
using Image = std::variant<std::monostate, DrawnImage, FileIcon, SymbolImage>;

} // namespace haloric
