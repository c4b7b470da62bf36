#include "unit/hosts/sim/SimDesktopFixture.h"

namespace haloric {
namespace {

using testing::Contains;

TEST(SimFocus, the_last_application_started_is_frontmost_and_its_last_window_focused)
{
    SimDesktopFixture fixture;
    SimApp& editor = fixture.launch("Editor");
    fixture.open(editor, "a");
    fixture.open(editor, "b");

    EXPECT_EQ(fixture.frontmost(), "Editor");
    EXPECT_EQ(fixture.focusedIn(editor), "b");
}

TEST(SimFocus, closing_the_focused_window_focuses_the_next_one_of_the_application)
{
    SimDesktopFixture fixture;
    SimApp& editor = fixture.launch("Editor");
    fixture.open(editor, "a");
    fixture.open(editor, "b");
    fixture.settle();

    fixture.desktop.windows.close(*fixture.desktop.model.windows.named("b"));
    fixture.run();
    EXPECT_EQ(fixture.focusedIn(editor), "a");
    EXPECT_THAT(fixture.reported, Contains("Editor AXUIElementDestroyed"));
    EXPECT_THAT(fixture.reported, Contains("Editor AXFocusedWindowChanged"));
}

} // namespace
} // namespace haloric
