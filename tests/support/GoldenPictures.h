// Compares with the pictures in tests/golden, which were checked by eye.
//
// A component may differ by 1 of 255: machines differ only in the rounding of a sum's last bit (a compiler may fuse a
// multiplication with an addition), which can change a value halfway between two. With HALORIC_UPDATE_GOLDEN=1 in the
// environment the pictures are written instead; look at them before you commit.
#pragma once

#include "drawing/raster/Picture.h"

#include <string>

namespace haloric {

struct GoldenPictures {
    // "NAME@SCALE", as the files are called, with two decimals unless the scale is whole.
    static std::string scaled(const std::string& name, double scale);

    // Fails the current test and writes pictures of the difference if `picture` differs from the kept one.
    static void compare(const std::string& name, Picture& picture);
};

} // namespace haloric
