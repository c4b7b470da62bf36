// A colour to draw with: four sRGB components, nominally 0...1, not premultiplied.
#pragma once

namespace haloric {

struct Color {
    double red = 0;
    double green = 0;
    double blue = 0;
    double alpha = 0;

    constexpr Color withAlpha(double newAlpha) const { return {red, green, blue, newAlpha}; }

    friend bool operator==(const Color&, const Color&) = default;
};

} // namespace haloric
