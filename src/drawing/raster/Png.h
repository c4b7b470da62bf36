// Pictures in PNG files. A picture that is written and read again has the same pixels. May block on the disk.
#pragma once

#include "drawing/raster/Picture.h"

#include <optional>
#include <string>

namespace haloric {

class Png {
public:
    // False if the file cannot be written completely; it may exist in part.
    static bool write(const PixelBuffer& pixels, const std::string& path);

    // The bytes of such a file; empty if memory is exhausted.
    static std::string encode(const PixelBuffer& pixels);

    // No value if there is no such file or it is not a PNG.
    static std::optional<Picture> read(const std::string& path);
};

} // namespace haloric
