// Which windows are dimmed.
#pragma once

#include <array>
#include <optional>
#include <string_view>

namespace haloric {

enum class DimScope {
    allWindows,   // every window but the focused one: the screen is tinted, with a hole
    selectedApps, // windows of the applications in Settings::dimApps
};

inline constexpr std::array kAllDimScopes{DimScope::allWindows, DimScope::selectedApps};

std::string_view rawValue(DimScope scope);
std::optional<DimScope> dimScopeFromRawValue(std::string_view rawValue); // absent for an unknown text

} // namespace haloric
