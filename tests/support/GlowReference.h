// The exact glow, computed directly in double precision: the smoothed mask of a rounded rectangle, blurred
// pixel by pixel with a Gaussian of standard deviation B / 2, cut at ± B and scaled to a sum of one.
#pragma once

#include <vector>

namespace haloric {

class GlowReference {
public:
    // Pixels, y downward; the picture has its upper left pixel at (0, 0). The radius is at most half the size.
    GlowReference(int width, int height, double x0, double y0, double x1, double y1, double radius, double blurRadius);

    // 0...1, of a rectangle in an opaque colour that casts an opaque shadow and is clipped to its own outside.
    double alpha(int x, int y) const;

    // The part of the pixel that the rectangle covers.
    double coverage(int x, int y) const { return m_mask[index(x, y)]; }

private:
    std::size_t index(int x, int y) const
    {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(m_width) + static_cast<std::size_t>(x);
    }

    void addSpan(int row, double left, double right, double share);
    void blur(double blurRadius);

    int m_width;
    int m_height;
    std::vector<double> m_mask;
    std::vector<double> m_blurred;
};

} // namespace haloric
