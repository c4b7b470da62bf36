// Asks the window manager to focus one of the program's windows. Main thread.
#pragma once

#include "hosts/linux/qt/QtForeground.h"
#include "hosts/x11/server/X11Connection.h"

namespace haloric {

// The request is marked as a pager's: window managers grant those as made by the user, also when the program itself has
// had no input for a while. The connection outlives the result.
QtFocusRequest x11FocusRequest(X11Connection& connection);

} // namespace haloric
