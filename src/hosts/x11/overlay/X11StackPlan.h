// The place of the overlays among the children of the root window. Pure.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

namespace haloric {

// What a child of the root means to the overlays.
enum class X11StackRole {
    ordinary, // an application's window that takes part in the highlighting and dimming
    focused,  // the window with the focus, of any kind
    other,    // panels, menus, popups, the desktop, unmapped windows
    overlay,
};

struct X11StackEntry {
    std::uint32_t window = 0;
    X11StackRole role = X11StackRole::other;
};

struct X11StackPlan {
    // The window directly below the lowest overlay; no value if there is neither an ordinary nor a focused window.
    std::optional<std::uint32_t> anchor;

    // Whether all overlays are in place already: in their order, with no other window in between.
    bool isInPlace = false;

    // `children` from bottom to top; `overlays` are the shown ones, from bottom to top.
    static X11StackPlan make(std::span<const X11StackEntry> children, std::span<const std::uint32_t> overlays);
};

} // namespace haloric
