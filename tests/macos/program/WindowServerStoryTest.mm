// The window server's functions, some of which a version of macOS may lack.
#include "macos/program/Story.h"

#include <gtest/gtest.h>

namespace haloric {
namespace {

using substitute::World;

// A window is followed as it moves, changes its size and gives way to another one.
Story following(const std::function<void()>& before)
{
    return {.before = before, .then = [] {
                const unsigned window = openInFront(kEditor, CGRectMake(200, 150, 500, 400));
                waitUntil("the window is highlighted", [&] { return isHighlighted(window); });
                World::the().setFrame(window, CGRectMake(320, 240, 500, 400));
                waitUntil("the highlight follows the window", [&] { return isHighlighted(window); });
                World::the().setFrame(window, CGRectMake(320, 240, 700, 300));
                waitUntil("the highlight changes its size with it", [&] { return isHighlighted(window); });
                const unsigned other = openInFront(kBrowser, CGRectMake(50, 60, 400, 300));
                waitUntil("the highlight goes to the other window", [&] { return isHighlighted(other); });
                World::the().close(other);
                World::the().quit(kBrowser);
                waitUntil("no highlight is left where no window is", isNothingHighlighted);
            }};
}

TEST(WindowServerStory, windows_are_followed_with_all_of_its_functions) { expectToEndWell(following({})); }

TEST(WindowServerStory, windows_are_followed_without_the_library)
{
    expectToEndWell(following([] { World::the().libraryMissing = true; }));
}

const std::vector<std::string> kSymbols{"SLSMainConnectionID",
                                        "SLSGetWindowBounds",
                                        "SLSRegisterNotifyProc",
                                        "SLSRemoveNotifyProc",
                                        "SLSRequestNotificationsForWindows",
                                        "SLSTransactionCreate",
                                        "SLSTransactionMoveWindowWithGroup",
                                        "SLSTransactionCommit"};

TEST(WindowServerStory, windows_are_followed_without_any_one_of_its_functions)
{
    for (const std::string& symbol : kSymbols) {
        SCOPED_TRACE(symbol);
        expectToEndWell(following([&] { substitute::setMissingSymbols({symbol}); }));
    }
}

TEST(WindowServerStory, windows_are_followed_without_all_of_its_functions)
{
    expectToEndWell(following([] { substitute::setMissingSymbols({kSymbols.begin(), kSymbols.end()}); }));
}

} // namespace
} // namespace haloric
