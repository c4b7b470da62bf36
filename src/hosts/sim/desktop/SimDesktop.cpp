#include "hosts/sim/desktop/SimDesktop.h"

#include "hosts/sim/desktop/SimOverlay.h"

#include <algorithm>

namespace haloric {

SimOverlay* SimDesktop::overlay(std::int64_t number) const
{
    const auto found = std::ranges::find(overlays, number, &SimOverlay::windowNumber);
    return found == overlays.end() ? nullptr : *found;
}

} // namespace haloric
