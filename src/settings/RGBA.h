// A colour as it is stored in the settings: four sRGB components as 64-bit floats, nominally 0...1; nothing clamps
// them.
#pragma once

#include "foundation/Color.h"

namespace haloric {

struct RGBA {
    double r = 0;
    double g = 0;
    double b = 0;
    double a = 0;

    friend bool operator==(const RGBA&, const RGBA&) = default;
};

constexpr Color colorFrom(const RGBA& rgba) { return {rgba.r, rgba.g, rgba.b, rgba.a}; }
constexpr RGBA rgbaFrom(const Color& color) { return {color.red, color.green, color.blue, color.alpha}; }

} // namespace haloric
