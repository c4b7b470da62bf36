#include "unit/hosts/sim/SimDesktopFixture.h"

namespace haloric {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(SimApplicationVerbs, hiding_the_frontmost_application_brings_the_one_behind_it_forward)
{
    SimDesktopFixture fixture;
    SimApp& editor = fixture.launch("Editor");
    fixture.open(editor, "a");
    SimApp& browser = fixture.launch("Browser");
    fixture.open(browser, "page");

    fixture.desktop.applications.hide(browser);
    EXPECT_EQ(fixture.frontmost(), "Editor");
    EXPECT_EQ(fixture.focusedIn(browser), "page") << "it keeps its focus for later";
    fixture.desktop.applications.activate(browser);
    EXPECT_EQ(fixture.frontmost(), "Browser");
    EXPECT_FALSE(browser.hidden);
}

TEST(SimApplicationVerbs, hiding_the_only_application_leaves_it_frontmost)
{
    SimDesktopFixture fixture;
    SimApp& editor = fixture.launch("Editor");
    fixture.open(editor, "a");

    fixture.desktop.applications.hide(editor);
    EXPECT_EQ(fixture.frontmost(), "Editor");
    EXPECT_TRUE(editor.hidden);
}

TEST(SimApplicationVerbs, an_application_that_quits_closes_its_windows)
{
    SimDesktopFixture fixture;
    SimApp& editor = fixture.launch("Editor");
    fixture.open(editor, "a");
    fixture.open(editor, "b");
    fixture.settle();

    fixture.desktop.applications.quit(editor);
    fixture.run();
    EXPECT_EQ(fixture.frontmost(), "");
    EXPECT_THAT(fixture.desktop.model.windows.frontToBack(), IsEmpty());
    EXPECT_THAT(fixture.workspace, ElementsAre(WorkspaceNotification::didTerminateApplication));
}

} // namespace
} // namespace haloric
