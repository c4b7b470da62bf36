// Which of two versions is the newer. Versions are texts such as "1.4", "2.0.1", "2.0b3", "2.0-rc.1". Pure.
//
// Numbers count by their value, part by part; missing ones are zero. A part that begins with a letter makes a
// pre-release: it is older than the same version without it, and letters compare by the alphabet, whatever their case.
// What follows a plus sign does not matter.
#pragma once

#include <compare>
#include <string_view>

namespace haloric::AppVersion {

// Whether it begins with a number.
bool isVersion(std::string_view text);

std::weak_ordering compare(std::string_view a, std::string_view b);

} // namespace haloric::AppVersion
