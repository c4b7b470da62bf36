// Compares two pictures component by component.
#pragma once

#include "drawing/raster/Picture.h"

#include <algorithm>
#include <cstdlib>

namespace haloric {

struct PictureDifference {
    int largest = 0; // of any component, of 255; 256 for pictures of different sizes
    int x = 0;       // where
    int y = 0;
    int pixels = 0;    // how many differ at all
    Picture amplified; // opaque; each component's difference 16 times, to look at

    static int between(std::uint32_t a, std::uint32_t b)
    {
        int largest = 0;
        for (int shift = 0; shift < 32; shift += 8)
            largest =
                std::max(largest, std::abs(static_cast<int>(a >> shift & 255) - static_cast<int>(b >> shift & 255)));
        return largest;
    }

    static PictureDifference of(const Picture& a, const Picture& b)
    {
        PictureDifference result;
        if (a.width != b.width || a.height != b.height) {
            result.largest = 256;
            return result;
        }
        result.amplified = Picture(a.width, a.height);
        for (int y = 0; y < a.height; ++y)
            for (int x = 0; x < a.width; ++x)
                result.add(x, y, between(a.at(x, y), b.at(x, y)));
        return result;
    }

private:
    void add(int atX, int atY, int difference)
    {
        pixels += difference > 0 ? 1 : 0;
        const auto grey = static_cast<std::uint32_t>(std::min(255, difference * 16));
        amplified.buffer().row(atY)[atX] = 0xff000000 | grey << 16 | grey << 8 | grey;
        if (difference > largest) {
            largest = difference;
            x = atX;
            y = atY;
        }
    }
};

} // namespace haloric
