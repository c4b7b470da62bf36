// How tests use menus, status items and hotkeys as a person does. Main thread.
#pragma once

#include "foundation/Foundation.h"

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

namespace substitute {

long hotkeys(); // registered ones
void pressHotkey();

} // namespace substitute
