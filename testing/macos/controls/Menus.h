// How tests use menus, status items and hotkeys as a person does. Main thread.
#pragma once

#include "foundation/Foundation.h"
#include "platform/PlatformError.h"

#import <AppKit/AppKit.h>

@interface NSMenu (Substitute)
- (void)_under:(NSMenuItem*)item;
- (NSMenuItem*)_parent;
- (void)_open;
- (void)_choose:(NSInteger)index;
@end

@interface NSMenuItem (Substitute)
- (void)_in:(NSMenu*)menu;
@end

@interface NSStatusBar (Substitute)
- (NSArray*)_items;
@end

@interface NSApplication (Substitute)
// As a person presses it while the application is active; NO if no item of the main menu has it.
- (BOOL)_pressKey:(NSString*)key modifiers:(NSEventModifierFlags)modifiers;
- (void)_reopen; // as a person opens the application that runs already
@end

namespace substitute {

extern bool activationRefused; // the system keeps another application active

long hotkeys(); // registered ones
void pressHotkey();
void forgetHotkeys(); // as at the end of a process

NSError* errorBehind(const haloric::PlatformError& error); // of a backing

} // namespace substitute
