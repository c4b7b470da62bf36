// The accent colours that the menu offers, in its order.
#pragma once

#include "settings/RGBA.h"

#include <array>
#include <string_view>

namespace haloric {

struct AccentPreset {
    std::string_view name;
    RGBA color;
};

inline constexpr std::array<AccentPreset, 9> kAccentPresets{{
    {"Blue", {0.04, 0.52, 1.0, 1.0}},
    {"Purple", {0.69, 0.32, 0.87, 1.0}},
    {"Pink", {1.0, 0.18, 0.33, 1.0}},
    {"Red", {1.0, 0.23, 0.19, 1.0}},
    {"Orange", {1.0, 0.58, 0.0, 1.0}},
    {"Yellow", {1.0, 0.8, 0.0, 1.0}},
    {"Green", {0.16, 0.8, 0.25, 1.0}},
    {"Teal", {0.35, 0.78, 0.98, 1.0}},
    {"White", {1.0, 1.0, 1.0, 1.0}},
}};

} // namespace haloric
