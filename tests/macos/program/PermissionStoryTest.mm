// What the user permits the program, and what it shows without.
#include "macos/program/Story.h"

#include "windows/Windows.h"

#include <gtest/gtest.h>

namespace haloric {
namespace {

using substitute::World;

TEST(PermissionStory, the_highlight_comes_with_the_permission_and_goes_with_it)
{
    expectToEndWell({.before = [] { World::the().trusted = false; },
                     .then =
                         [] {
                             const unsigned window = openInFront(kEditor, CGRectMake(200, 150, 500, 400));
                             require(alerts() == std::vector<std::string>{"Haloric needs Accessibility access"},
                                     "the alert explains the permission, once");
                             require(substitute::openedURLs().size() == 1, "its first button opens System Settings");
                             waitForTwoPolls();
                             require(isNothingHighlighted(), "nothing is highlighted without the permission");
                             require(menuItem(@"Grant Accessibility Permission…"), "the menu offers to grant it");

                             World::the().trusted = true;
                             waitUntil("the window is highlighted once it is granted",
                                       [&] { return isHighlighted(window); });
                             require(!menuItem(@"Grant Accessibility Permission…"), "the menu offers it no more");

                             World::the().trusted = false;
                             waitUntil("the highlight goes once it is revoked", isNothingHighlighted);
                             require(menuItem(@"Grant Accessibility Permission…"), "the menu offers it again");
                             require(alerts().size() == 1, "no further alert interrupts the user");
                         }});
}

TEST(PermissionStory, later_is_an_answer_too)
{
    const auto before = [] {
        World::the().trusted = false;
        substitute::alertResponse = NSAlertSecondButtonReturn;
    };
    const auto then = [] {
        require(substitute::openedURLs().empty(), "System Settings stay closed");
        waitForTwoPolls();
        choose(@"Grant Accessibility Permission…");
        waitUntil("the menu opens System Settings", [] { return substitute::openedURLs().size() == 1; });
        require(alerts().size() == 1, "the alert is shown once");
    };
    expectToEndWell({.before = before, .then = then});
}

TEST(PermissionStory, without_an_event_tap_the_window_is_highlighted_all_the_same)
{
    expectToEndWell({.before = [] { World::the().tapsRefused = true; },
                     .then =
                         [] {
                             const unsigned window = openInFront(kEditor, CGRectMake(200, 150, 500, 400));
                             waitUntil("the window is highlighted", [&] { return isHighlighted(window); });
                             require(alerts().empty(), "no alert interrupts the user");
                         }});
}

} // namespace
} // namespace haloric
