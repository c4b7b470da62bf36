// Where overlays belong among the children of the root. Pure.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

namespace haloric {

// What a child of the root means to the overlays.
enum class X11StackRole {
    ordinary, // an application's window that takes part in the highlighting and dimming
    focused,  // the one with the focus, whatever else it is
    other,    // panels, menus, popups, the desktop, windows that are not shown
    overlay,
};

struct X11StackEntry {
    std::uint32_t window = 0;
    X11StackRole role = X11StackRole::other;
};

struct X11StackPlan {
    // The window that the lowest overlay belongs directly above; absent when there is nothing to be above.
    std::optional<std::uint32_t> anchor;

    // Whether all overlays are there already, in their order, with nothing between.
    bool isInPlace = false;

    // `children` from bottom to top; `overlays` those that are shown, in their order from bottom to top.
    static X11StackPlan make(std::span<const X11StackEntry> children, std::span<const std::uint32_t> overlays);
};

} // namespace haloric
