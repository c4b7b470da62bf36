// Applications outside the program that do not behave.
#include "macos/program/Story.h"

#include <gtest/gtest.h>

#include <mutex>

namespace haloric {
namespace {

using substitute::World;

void setHanging(int pid, bool hangs)
{
    const std::lock_guard guard(World::the().lock);
    if (hangs)
        World::the().hanging.insert(pid);
    else
        World::the().hanging.erase(pid);
}

void setUnready(int pid, bool unready)
{
    const std::lock_guard guard(World::the().lock);
    if (unready)
        World::the().unready.insert(pid);
    else
        World::the().unready.erase(pid);
}

TEST(ApplicationStory, an_application_that_hangs_holds_up_neither_the_program_nor_other_windows)
{
    const auto then = [] {
        const unsigned hung = openInFront(kEditor, CGRectMake(200, 150, 500, 400));
        waitUntil("the window is highlighted", [&] { return isHighlighted(hung); });

        setHanging(kEditor, true);
        World::the().setFrame(hung, CGRectMake(260, 190, 500, 400)); // the window server drags it all the same
        waitUntil("the highlight follows the window of the application that hangs",
                  [&] { return isHighlighted(hung); });
        const unsigned other = openInFront(kBrowser, CGRectMake(50, 60, 400, 300));
        waitUntil("the highlight goes to the window of another application", [&] { return isHighlighted(other); });

        World::the().activate(kEditor, hung);
        waitUntil("the other window loses the highlight", [&] { return !isHighlighted(other); });
        waitForTwoPolls();
        require(menuItem(@"Border") != nil, "the menu opens meanwhile");
        setHanging(kEditor, false);
        waitUntil("the window is highlighted once the application answers", [&] { return isHighlighted(hung); });
        require(World::the().waitsOnMain == 0, "the main thread waited for no application");
    };
    expectToEndWell({.then = then});
}

TEST(ApplicationStory, the_program_can_be_quit_while_an_application_hangs)
{
    const auto then = [] {
        const unsigned hung = openInFront(kEditor, CGRectMake(200, 150, 500, 400));
        waitUntil("the window is highlighted", [&] { return isHighlighted(hung); });
        setHanging(kEditor, true);
        waitForTwoPolls();
    };
    expectToEndWell({.then = then});
}

TEST(ApplicationStory, the_highlight_goes_with_an_application_that_dies)
{
    const auto then = [] {
        const unsigned other = World::the().open(kBrowser, CGRectMake(50, 60, 400, 300));
        const unsigned window = openInFront(kEditor, CGRectMake(200, 150, 500, 400));
        waitUntil("the window is highlighted", [&] { return isHighlighted(window); });
        World::the().quit(kEditor);
        waitUntil("nothing is highlighted where the window was", isNothingHighlighted);
        World::the().activate(kBrowser, other);
        waitUntil("the next window is highlighted", [&] { return isHighlighted(other); });
    };
    expectToEndWell({.then = then});
}

TEST(ApplicationStory, an_application_that_is_not_ready_at_first_is_highlighted_once_it_is)
{
    const auto then = [] {
        setUnready(kEditor, true);
        const unsigned window = openInFront(kEditor, CGRectMake(200, 150, 500, 400));
        waitForTwoPolls();
        require(isNothingHighlighted(), "nothing is highlighted before the application answers");
        setUnready(kEditor, false);
        waitUntil("the window is highlighted once it does", [&] { return isHighlighted(window); });
        const unsigned second = World::the().open(kEditor, CGRectMake(400, 300, 300, 200));
        World::the().activate(kEditor, second);
        waitUntil("the highlight goes to its next window", [&] { return isHighlighted(second); });
    };
    expectToEndWell({.then = then});
}

} // namespace
} // namespace haloric
