// The main menu. An accessory application shows none, but its key equivalents work while the application is active:
// Command-W and Command-Q, and copying and pasting in text fields and panels, on every keyboard layout. Main thread.
#pragma once

#import <AppKit/AppKit.h>

namespace haloric {

// It has no item that hides the application: a hidden accessory application cannot be found again.
NSMenu* makeMainMenu();

} // namespace haloric
