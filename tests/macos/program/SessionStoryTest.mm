// The program's own windows, and its end.
#include "controls/Menus.h"
#include "macos/program/Story.h"
#include "windows/Windows.h"

#include <gtest/gtest.h>

namespace haloric {
namespace {

using substitute::World;

NSButton* buttonIn(NSView* view, NSString* title)
{
    for (NSView* each in view.subviews) {
        if ([each isKindOfClass:NSButton.class] && [((NSButton*)each).title isEqualToString:title])
            return (NSButton*)each;
        if (NSButton* const found = buttonIn(each, title))
            return found;
    }
    return nil;
}

unsigned openHighlightedWindow()
{
    const unsigned window = openInFront(kEditor, CGRectMake(200, 150, 500, 400));
    waitUntil("the window is highlighted", [&] { return isHighlighted(window); });
    return window;
}

void openSettings()
{
    choose(@"Settings…");
    waitUntil("the settings window opens", isSettingsWindowShown);
}

TEST(SessionStory, opening_the_application_again_opens_the_settings_window)
{
    const auto then = [] {
        const unsigned window = openHighlightedWindow();
        [NSApp _reopen];
        waitUntil("the settings window opens", isSettingsWindowShown);
        [NSApp _reopen];
        require(isSettingsWindowShown(), "and stays open");
        require([NSApp _pressKey:@"w" modifiers:NSEventModifierFlagCommand], "Command-W closes it");
        require(!isSettingsWindowShown(), "it is closed");
        waitUntil("the former window has the focus and the highlight again", [&] { return isHighlighted(window); });
    };
    expectToEndWell({.then = then});
}

TEST(SessionStory, the_program_can_be_quit_while_everything_runs)
{
    const auto then = [] {
        const unsigned window = openHighlightedWindow();
        choose(@"Dim other windows");
        waitUntil("the screens are dimmed", [&] { return overlays().size() == 3; });
        openSettings();
        World::the().activate(kEditor, window);
        World::the().button(NSEventTypeLeftMouseDown, true); // a drag
        World::the().setFrame(window, CGRectMake(320, 240, 500, 400));
        waitUntil("the highlight follows", [&] { return isSurrounded(window); });
    };
    expectToEndWell({.then = then});
}

TEST(SessionStory, the_settings_window_restarts_the_program_while_the_highlight_is_shown)
{
    const auto then = [] {
        openHighlightedWindow();
        openSettings();
    };
    const auto end = [] {
        for (NSWindow* window in substitute::windows())
            if (NSButton* const restart = buttonIn(window.contentView, @"Restart"))
                [restart sendAction:restart.action to:restart.target];
    };
    expectToEndWell({.then = then, .end = end});
}

TEST(SessionStory, command_q_quits_from_the_settings_window)
{
    const auto then = [] {
        openHighlightedWindow();
        openSettings();
    };
    expectToEndWell({.then = then, .end = [] { [NSApp _pressKey:@"q" modifiers:NSEventModifierFlagCommand]; }});
}

} // namespace
} // namespace haloric
