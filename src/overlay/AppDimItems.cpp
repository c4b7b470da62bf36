#include "overlay/AppDimItems.h"

#include <algorithm>
#include <cmath>

namespace haloric {

namespace {

// Accessibility and the window list may report slightly different frames of one window.
bool areClose(const Rect& a, const Rect& b)
{
    constexpr double kTolerance = 2.0; // points
    return std::abs(a.minX() - b.minX()) < kTolerance && std::abs(a.minY() - b.minY()) < kTolerance &&
           std::abs(a.width - b.width) < kTolerance && std::abs(a.height - b.height) < kTolerance;
}

bool isFocusedWindow(const WindowList::Entry& entry, const FocusState& state, const Rect& focusedFrame)
{
    if (state.windowID != WindowIdentity::none && state.windowID == identityOf(entry.id))
        return true;
    return entry.pid == state.pid && areClose(entry.rect, focusedFrame);
}

} // namespace

void makeAppDimItems(std::span<const WindowList::Entry> entries, const FocusState& state, const Rect& focusedFrame,
                     std::span<const std::string> dimApps, std::vector<AppDimView::Window>& items)
{
    items.clear();
    for (const WindowList::Entry& entry : entries) {
        if (isFocusedWindow(entry, state, focusedFrame)) {
            items.push_back({focusedFrame, false});
        } else {
            const bool selected = entry.bundleID && std::ranges::find(dimApps, *entry.bundleID) != dimApps.end();
            items.push_back({entry.rect, selected});
        }
    }
    items.push_back({focusedFrame, false});
}

} // namespace haloric
