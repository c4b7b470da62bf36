// The blur of a shadow in one dimension, used by everything that draws a glow.
//
// A shadow of blur radius B is a Gaussian of standard deviation B / 2, cut at ± B and scaled to a sum of one: what open
// re-implementations of the toolkit found when they compared pixels with it. It acts on pixels, on a mask whose edges
// are smoothed over one pixel each. Summed up over a straight edge, which may lie anywhere between two pixels, the
// pixels' shares make the cumulative function piecewise linear. The closed form, the error function, would have to be
// widened by the pixel's own variance of 1/12 to come near, and is still 1.3 of 255 off for a blur of 4. Pure.
#pragma once

#include <cstddef>
#include <vector>

namespace haloric {

class GlowKernel {
public:
    // Larger blurs, in pixels, are drawn with this one: the largest glow of the views at four pixels a point.
    static constexpr double kMaxBlurRadius = 512;

    // `blurRadius` in pixels; limited to 0...kMaxBlurRadius.
    explicit GlowKernel(double blurRadius);

    // How many pixels the blur extends beyond a mask's own pixels.
    static int marginOf(double blurRadius);
    int margin() const { return static_cast<int>(m_taps.size()) - 1; }

    // The shares of the pixels at distances 0, 1, ... margin(), on either side.
    const std::vector<float>& taps() const { return m_taps; }

    // The share of a blurred half-plane in a pixel whose centre is `distance` pixels inside its straight edge: 0 far
    // outside, 1 far inside.
    float cumulative(double distance) const
    {
        const double position = distance + margin() + 0.5;
        if (position <= 0)
            return 0;
        const auto step = static_cast<std::size_t>(position);
        if (step + 1 >= m_sums.size())
            return 1;
        return m_sums[step] +
               static_cast<float>(position - static_cast<double>(step)) * (m_sums[step + 1] - m_sums[step]);
    }

private:
    std::vector<float> m_taps;
    std::vector<float> m_sums; // of the shares up to the pixel boundary at -margin() - 0.5, and so on
};

} // namespace haloric
