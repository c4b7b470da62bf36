#include "hosts/x11/X11Diagnostics.h"

#include <sstream>

namespace haloric {

namespace {

void appendScreen(std::ostringstream& out, std::size_t index, const Screen& screen)
{
    out << "  " << index + 1 << ": " << screen.frame.width << " x " << screen.frame.height << " points at ("
        << screen.frame.x << ", " << screen.frame.y << "), scale " << screen.backingScale << ", "
        << screen.maximumFramesPerSecond << " Hz" << (index == 0 ? ", primary" : "") << '\n';
}

} // namespace

std::string X11Diagnostics::text() const
{
    std::ostringstream out;
    out << "Haloric " << version << '\n';
    out << "Display: " << display << '\n';
    out << "Window manager: " << (windowManager.empty() ? "none that follows EWMH" : windowManager) << '\n';
    out << "Compositor: "
        << (!hasCompositor       ? "none"
            : compositor.empty() ? "yes, without a name"
                                 : compositor)
        << '\n';
    out << "Extensions:";
    for (const Extension& extension : extensions)
        out << ' ' << (extension.isPresent ? "" : "no ") << extension.name
            << (&extension == &extensions.back() ? "" : ",");
    out << "\nScreens: " << screens.size() << '\n';
    for (std::size_t index = 0; index < screens.size(); ++index)
        appendScreen(out, index, screens[index]);
    out << "Overlays: " << (overlaysAreTranslucent ? "translucent" : "opaque rings, border and pulse alone") << '\n';
    out << "Pixels travel: " << (sharesMemory ? "in shared memory" : "through the connection") << '\n';
    out << "Ticks: " << (followsRefresh ? "by the screen's refresh" : "by a timer at the screen's rate") << '\n';
    out << "Moves past the toolkit: " << (movesPastToolkit ? "on" : "off") << '\n';
    out << "Input of other programs: " << (hearsRawInput ? "heard" : "not heard") << '\n';
    return out.str();
}

} // namespace haloric
