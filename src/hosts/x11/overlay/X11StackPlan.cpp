#include "hosts/x11/overlay/X11StackPlan.h"

#include <algorithm>

namespace haloric {

X11StackPlan X11StackPlan::make(std::span<const X11StackEntry> children, std::span<const std::uint32_t> overlays)
{
    const auto isBelowOverlays = [](const X11StackEntry& entry) {
        return entry.role == X11StackRole::ordinary || entry.role == X11StackRole::focused;
    };
    const auto highest = std::find_if(children.rbegin(), children.rend(), isBelowOverlays);
    if (highest == children.rend())
        return {};
    const auto above = children.subspan(static_cast<std::size_t>(children.rend() - highest));
    const bool isInPlace = above.size() >= overlays.size() &&
                           std::ranges::equal(above.first(overlays.size()), overlays, {}, &X11StackEntry::window);
    return {highest->window, isInPlace};
}

} // namespace haloric
