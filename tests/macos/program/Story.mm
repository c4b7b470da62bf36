#include "macos/program/Story.h"

#include "controls/Menus.h"
#include "hosts/macos/overlay/MacOverlayWindow.h"
#include "loop/MainLoop.h"
#include "windows/Windows.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <mutex>

#include <unistd.h>

int haloric_main(); // the program's own

namespace haloric {
namespace {

using substitute::World;

constexpr double kPatience = 10; // seconds; a story that waits longer has failed
constexpr const char* kEnd = "The story is told to its end.";

[[noreturn]] void fail(const char* what)
{
    std::fprintf(stderr, "not so: %s\n", what);
    for (const CGRect& frame : overlays())
        std::fprintf(stderr, "  overlay at %g,%g of %gx%g\n", frame.origin.x, frame.origin.y, frame.size.width,
                     frame.size.height);
    for (const std::string& alert : alerts())
        std::fprintf(stderr, "  alert: %s\n", alert.c_str());
    ::_exit(1);
}

// Like the program's poll, which asks first of all whether it may look.
int polls() { return substitute::questions()["AXIsProcessTrusted"]; }

bool reachesEquallyBeyond(const CGRect& overlay, const CGRect& window)
{
    const double left = window.origin.x - overlay.origin.x;
    const double top = window.origin.y - overlay.origin.y;
    const double right = (overlay.origin.x + overlay.size.width) - (window.origin.x + window.size.width);
    const double bottom = (overlay.origin.y + overlay.size.height) - (window.origin.y + window.size.height);
    return left > 0 && std::max({std::abs(top - left), std::abs(right - left), std::abs(bottom - left)}) < 0.01;
}

void tell(const Story& story)
{
    story.then();
    std::fprintf(stderr, "%s\n", kEnd);
    if (story.end)
        story.end();
    else
        choose(@"Quit Haloric");
    fail("the program ends when the user quits it");
}

[[noreturn]] void play(const Story& story)
{
    @autoreleasepool {
        World::the().reset();
        substitute::whileAlertRuns = [](NSAlert* alert) { alerts().emplace_back(alert.messageText.UTF8String); };
        if (story.before)
            story.before();
        substitute::onMain([&story] { tell(story); });
        haloric_main();
    }
    fail("the program runs until it is quit");
}

} // namespace

void expectToEndWell(const Story& story) { EXPECT_EXIT(play(story), testing::ExitedWithCode(0), kEnd); }

unsigned openInFront(int pid, CGRect frame)
{
    const unsigned number = World::the().open(pid, frame);
    World::the().activate(pid, number);
    return number;
}

void waitUntil(const char* what, const std::function<bool()>& holds)
{
    const double end = substitute::now() + kPatience;
    while (true) {
        @autoreleasepool {
            if (holds())
                return;
            if (substitute::now() > end)
                fail(what);
            substitute::turn(NSDefaultRunLoopMode, substitute::now() + 0.005);
        }
    }
}

void require(bool holds, const char* what)
{
    if (!holds)
        fail(what);
}

void waitForTwoPolls()
{
    const int before = polls();
    waitUntil("the program looks again", [&] { return polls() >= before + 2; });
}

std::vector<CGRect> overlays()
{
    const std::lock_guard guard(World::the().lock);
    std::vector<CGRect> shown;
    for (const auto& each : World::the().windows)
        for (NSWindow* window in substitute::windows())
            if (each.onScreen && each.number == window.windowNumber && [window isKindOfClass:MacOverlayWindow.class])
                shown.push_back(each.frame);
    return shown;
}

bool isSurrounded(unsigned window)
{
    const std::lock_guard guard(World::the().lock);
    const auto* const target = World::the().find(window);
    return target && std::ranges::any_of(overlays(), [&](const CGRect& overlay) {
               return reachesEquallyBeyond(overlay, target->frame);
           });
}

bool isHighlighted(unsigned window) { return overlays().size() == 1 && isSurrounded(window); }

bool isNothingHighlighted() { return overlays().empty(); }

std::vector<std::string>& alerts()
{
    static auto* const all = new std::vector<std::string>;
    return *all;
}

bool isSettingsWindowShown()
{
    for (NSWindow* window in substitute::windows())
        if ([window.title isEqualToString:@"Haloric Settings"] && window.visible)
            return true;
    return false;
}

NSMenuItem* menuItem(NSString* title)
{
    NSArray* const items = [NSStatusBar.systemStatusBar _items];
    require(items.count == 1, "there is one status item");
    NSMenu* const menu = ((NSStatusItem*)items.firstObject).menu;
    [menu _open];
    for (NSMenuItem* item in menu.itemArray)
        if ([item.title isEqualToString:title] && !item.hidden)
            return item;
    return nil;
}

void choose(NSString* title)
{
    NSMenuItem* const item = menuItem(title);
    require(item != nil, "the menu has the item that the user chooses");
    [item.menu _choose:[item.menu indexOfItem:item]];
}

} // namespace haloric
