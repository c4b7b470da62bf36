// Which features of the desktop are in use, as text for bug reports.
#pragma once

#include "platform/Screens.h"

#include <string>
#include <string_view>
#include <vector>

namespace haloric {

class Processes;
class X11Compositor;
class X11Connection;
class X11DisplayLinks;
class X11RawInput;
class X11ToolkitWindows;
class X11WindowManager;

struct X11Diagnostics {
    struct Extension {
        std::string name;
        bool isPresent = false;
    };

    std::string version;
    std::string display;
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

    struct Sources {
        X11Connection& connection;
        const X11WindowManager& windowManager;
        const X11Compositor& compositor;
        const Screens& screens;
        const X11ToolkitWindows& toolkitWindows;
        const X11DisplayLinks& displayLinks;
        const X11RawInput& rawInput;
        const Processes& processes;
    };
    static X11Diagnostics gather(const Sources& sources, std::string_view version);

    // Several lines, each with its end.
    std::string text() const;
};

} // namespace haloric
