// From the on-screen windows to what per-application dimming paints.
#pragma once

#include "overlay/AppDimView.h"
#include "tracking/FocusState.h"
#include "windowserver/WindowList.h"

#include <span>
#include <string>
#include <vector>

namespace haloric {

// Replaces `items` by one for each entry, in their order and in screen space: the focused window clear, windows of
// the applications in `dimApps` dimmed, the rest clear; and `focusedFrame` once more, clear, in front of everything.
// Storage that `items` has is used again.
void makeAppDimItems(std::span<const WindowList::Entry> entries, const FocusState& state, const Rect& focusedFrame,
                     std::span<const std::string> dimApps, std::vector<AppDimView::Window>& items);

} // namespace haloric
