// One thing that happened to a managed window.
#pragma once

#include "foundation/Ids.h"
#include "hosts/x11/windows/X11Client.h"

#include <vector>

#include <xcb/xcb.h>

namespace haloric {

enum class X11ClientChange {
    appeared,
    vanished,
    moved,
    resized,
    minimised,
    restored,
    redecorated, // its title bar may have another height
    otherwise,
};

struct X11ClientNotice {
    ProcessID pid = ProcessID::none;
    xcb_window_t window = XCB_WINDOW_NONE;
    X11ClientChange change = X11ClientChange::otherwise;

    // Appends a notice for each way in which a window, still the same, differs from how it was.
    static void appendChanges(std::vector<X11ClientNotice>& notices, const X11Client& before, const X11Client& now);

    friend bool operator==(const X11ClientNotice&, const X11ClientNotice&) = default;
};

} // namespace haloric
