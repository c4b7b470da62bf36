#include "hosts/x11/X11Diagnostics.h"

namespace haloric {
namespace {

using testing::HasSubstr;

X11Diagnostics full()
{
    X11Diagnostics diagnostics;
    diagnostics.version = "1.2.3";
    diagnostics.display = ":7";
    diagnostics.windowManager = "Openbox";
    diagnostics.hasCompositor = true;
    diagnostics.compositor = "picom";
    diagnostics.extensions = {{"Present", true}, {"RandR", false}};
    diagnostics.screens = {{{0, 0, 1920, 1080}, DisplayID{1}, 144, 1.5}, {{1920, 0, 800, 600}, DisplayID{2}, 60, 1.5}};
    diagnostics.overlaysAreTranslucent = true;
    diagnostics.sharesMemory = true;
    diagnostics.followsRefresh = true;
    diagnostics.movesPastToolkit = true;
    diagnostics.hearsRawInput = true;
    return diagnostics;
}

TEST(X11Diagnostics, a_full_desktop_is_described_line_by_line)
{
    EXPECT_EQ(full().text(), "Haloric 1.2.3\n"
                             "Display: :7\n"
                             "Window manager: Openbox\n"
                             "Compositor: picom\n"
                             "Extensions: Present, no RandR\n"
                             "Screens: 2\n"
                             "  1: 1920 x 1080 points at (0, 0), scale 1.5, 144 Hz, primary\n"
                             "  2: 800 x 600 points at (1920, 0), scale 1.5, 60 Hz\n"
                             "Overlays: translucent\n"
                             "Pixels travel: in shared memory\n"
                             "Ticks: by the screen's refresh\n"
                             "Moves past the toolkit: on\n"
                             "Input of other programs: heard\n");
}

TEST(X11Diagnostics, a_wayland_session_is_named_with_what_it_means)
{
    auto diagnostics = full();
    diagnostics.isWaylandSession = true;
    EXPECT_THAT(diagnostics.text(),
                HasSubstr("\nSession: Wayland; only windows of X11 programs under Xwayland can be highlighted\n"));
}

TEST(X11Diagnostics, a_bare_desktop_is_described_as_such)
{
    const std::string text = X11Diagnostics().text();
    for (const char* line : {"Window manager: none", "Compositor: none", "Screens: 0", "Overlays: opaque rings",
                             "Pixels travel: through the connection", "Ticks: by a timer",
                             "Moves past the toolkit: off", "Input of other programs: not heard"})
        EXPECT_THAT(text, HasSubstr(line));
}

TEST(X11Diagnostics, a_compositor_may_have_no_name)
{
    auto diagnostics = full();
    diagnostics.compositor.clear();
    EXPECT_THAT(diagnostics.text(), HasSubstr("Compositor: yes, without a name\n"));
}

} // namespace
} // namespace haloric
