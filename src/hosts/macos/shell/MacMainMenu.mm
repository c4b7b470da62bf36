#include "hosts/macos/shell/MacMainMenu.h"

#include <initializer_list>

namespace haloric {
namespace {

struct Item {
    NSString* title;
    SEL action; // sent along the responder chain
    NSString* key;
    NSEventModifierFlags modifiers = NSEventModifierFlagCommand;
};

void addMenu(NSMenu* bar, NSString* title, std::initializer_list<Item> items)
{
    NSMenu* menu = [[NSMenu alloc] initWithTitle:title];
    for (const Item& item : items) {
        NSMenuItem* added = [menu addItemWithTitle:item.title action:item.action keyEquivalent:item.key];
        added.keyEquivalentModifierMask = item.modifiers;
    }
    [bar addItemWithTitle:title action:nil keyEquivalent:@""].submenu = menu;
}

} // namespace

NSMenu* makeMainMenu()
{
    constexpr NSEventModifierFlags kCommandShift = NSEventModifierFlagCommand | NSEventModifierFlagShift;
    NSMenu* bar = [[NSMenu alloc] initWithTitle:@""];
    addMenu(bar, @"Haloric", {{@"Quit Haloric", @selector(terminate:), @"q"}}); // the first is the application's
    addMenu(bar, @"File", {{@"Close", @selector(performClose:), @"w"}});
    addMenu(bar, @"Edit",
            {{@"Undo", NSSelectorFromString(@"undo:"), @"z"},
             {@"Redo", NSSelectorFromString(@"redo:"), @"z", kCommandShift},
             {@"Cut", @selector(cut:), @"x"},
             {@"Copy", @selector(copy:), @"c"},
             {@"Paste", @selector(paste:), @"v"},
             {@"Select All", @selector(selectAll:), @"a"}});
    return bar;
}

} // namespace haloric
