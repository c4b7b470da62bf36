// Screens that come, go, change and sleep, and Spaces.
#include "hosts/macos/base/MacConversions.h"
#include "macos/program/Story.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <mutex>

namespace haloric {
namespace {

using substitute::Display;
using substitute::World;

const Display kBuiltIn{1, {{0, 0}, {1440, 900}}, 2};
const Display kBeside{2, {{1440, 0}, {800, 600}}, 1};

// How many overlays cover the rectangle of global space exactly.
long covering(CGRect rect)
{
    return std::ranges::count_if(overlays(), [&](const CGRect& frame) { return rectFrom(frame) == rectFrom(rect); });
}

void post(NSNotificationName name)
{
    [NSWorkspace.sharedWorkspace.notificationCenter postNotificationName:name object:nil];
}

void setOnScreen(unsigned window, bool onScreen)
{
    const std::lock_guard guard(World::the().lock);
    World::the().find(window)->onScreen = onScreen;
}

TEST(ScreenStory, each_screen_is_dimmed_until_it_is_unplugged)
{
    const auto then = [] {
        const unsigned window = openInFront(kEditor, CGRectMake(1500, 400, 300, 200));
        waitUntil("the window on the second screen is highlighted", [&] { return isHighlighted(window); });
        choose(@"Dim other windows");
        const CGRect builtIn = CGRectMake(0, 0, 1440, 900);
        const CGRect beside = CGRectMake(1440, 300, 800, 600);
        waitUntil("both screens are dimmed", [&] { return covering(builtIn) == 1 && covering(beside) == 1; });
        require(isSurrounded(window), "the highlight stays");

        substitute::setDisplays({kBuiltIn});
        World::the().setFrame(window, CGRectMake(900, 400, 300, 200)); // as macOS does
        waitUntil("only the screen that is left is dimmed",
                  [&] { return covering(builtIn) == 1 && isSurrounded(window) && overlays().size() == 2; });
        choose(@"Dim other windows");
        waitUntil("only the highlight is left", [&] { return isHighlighted(window); });

        substitute::setDisplays({kBuiltIn, kBeside});
        World::the().setFrame(window, CGRectMake(1500, 400, 300, 200));
        waitUntil("the highlight goes back with the window", [&] { return isHighlighted(window); });
    };
    expectToEndWell({.then = then});
}

TEST(ScreenStory, the_highlight_stays_around_the_window_as_resolution_and_scale_change)
{
    const auto then = [] {
        const unsigned window = openInFront(kEditor, CGRectMake(200, 150, 500, 400));
        waitUntil("the window is highlighted", [&] { return isHighlighted(window); });
        for (const Display& changed : {Display{1, {{0, 0}, {1920, 1080}}, 1}, Display{1, {{0, 0}, {1024, 640}}, 2}}) {
            substitute::setDisplays({changed});
            waitForTwoPolls();
            waitUntil("it is highlighted on the changed screen", [&] { return isHighlighted(window); });
            World::the().setFrame(window, CGRectMake(changed.frame.size.width / 4, 100, 500, 300));
            waitUntil("the highlight follows it there", [&] { return isHighlighted(window); });
        }
    };
    expectToEndWell({.then = then});
}

TEST(ScreenStory, the_highlight_stays_around_the_window_as_another_screen_becomes_the_primary_one)
{
    const auto then = [] {
        const unsigned window = openInFront(kEditor, CGRectMake(200, 150, 500, 400));
        waitUntil("the window is highlighted", [&] { return isHighlighted(window); });
        substitute::setDisplays({{2, {{0, 0}, {800, 600}}, 1}, {1, {{-1440, 0}, {1440, 900}}, 2}});
        World::the().setFrame(window, CGRectMake(200 - 1440, 150 - 300, 500, 400)); // the same place on its screen
        waitUntil("it is highlighted at its new place", [&] { return isHighlighted(window); });
        waitForTwoPolls();
        require(isHighlighted(window), "and stays so");
    };
    expectToEndWell({.then = then});
}

TEST(ScreenStory, the_highlight_changes_with_the_space)
{
    const auto then = [] {
        const unsigned elsewhere = World::the().open(kBrowser, CGRectMake(50, 60, 400, 300));
        setOnScreen(elsewhere, false);
        const unsigned here = openInFront(kEditor, CGRectMake(200, 150, 500, 400));
        waitUntil("the window is highlighted", [&] { return isHighlighted(here); });

        setOnScreen(here, false);
        setOnScreen(elsewhere, true);
        World::the().activate(kBrowser, elsewhere);
        post(NSWorkspaceActiveSpaceDidChangeNotification);
        waitUntil("the window of the other Space is highlighted", [&] { return isHighlighted(elsewhere); });

        setOnScreen(elsewhere, false);
        World::the().quit(kBrowser);
        post(NSWorkspaceActiveSpaceDidChangeNotification);
        waitUntil("nothing is highlighted on an empty Space", isNothingHighlighted);

        setOnScreen(here, true);
        World::the().activate(kEditor, here);
        post(NSWorkspaceActiveSpaceDidChangeNotification);
        waitUntil("the first window is highlighted again", [&] { return isHighlighted(here); });
    };
    expectToEndWell({.then = then});
}

TEST(ScreenStory, windows_are_followed_after_the_displays_have_slept)
{
    const auto then = [] {
        const unsigned window = openInFront(kEditor, CGRectMake(200, 150, 500, 400));
        waitUntil("the window is highlighted", [&] { return isHighlighted(window); });
        choose(@"Dim other windows");
        substitute::setDisplays({kBuiltIn}); // one screen is gone as long as the displays sleep
        waitUntil("one screen is left", [] { return overlays().size() == 2; });
        substitute::displays = {kBuiltIn, kBeside};
        post(NSWorkspaceScreensDidWakeNotification);
        World::the().setFrame(window, CGRectMake(1500, 400, 300, 200));
        waitUntil("the highlight follows it to the screen that woke, which is dimmed",
                  [&] { return isSurrounded(window) && covering(CGRectMake(1440, 300, 800, 600)) == 1; });
    };
    expectToEndWell({.then = then});
}

} // namespace
} // namespace haloric
