// Which features of the desktop are in use, as text for bug reports.
#pragma once

#include "platform/Screens.h"

#include <string>
#include <string_view>
#include <vector>

namespace haloric {

class Processes;
class X11Connection;
struct X11Desktop;

struct X11Diagnostics {
    struct Extension {
        std::string name;
        bool isPresent = false;
    };

    std::string version;
    std::string display;
    bool isWaylandSession = false;
    std::string windowManager; // empty: none runs
    bool hasCompositor = false;
    std::string compositor; // may be empty even when one runs
    std::vector<Extension> extensions;
    std::vector<Screen> screens;
    bool overlaysAreTranslucent = false;
    bool sharesMemory = false;
    bool followsRefresh = false;
    bool movesPastToolkit = false;
    bool hearsRawInput = false;

    static X11Diagnostics gather(const X11Connection& connection, const X11Desktop& desktop, const Processes& processes,
                                 std::string_view version);

    // Several lines, each with its end.
    std::string text() const;
};

} // namespace haloric
