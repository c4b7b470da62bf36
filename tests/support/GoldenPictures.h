// Pictures that were looked at and kept, to compare with.
//
// A component may be off by 1 of 255: drawing is the same on every machine but for how it rounds the last bit of a sum
// (a compiler may fuse a multiplication with an addition), and that moves a value only where it lies between two.
// With HALORIC_UPDATE_GOLDEN=1 in the environment the pictures are written anew instead; look at them before you
// commit.
#pragma once

#include "drawing/raster/Picture.h"

#include <string>

namespace haloric {

struct GoldenPictures {
    // "NAME@SCALE", as the files are called, with two decimals unless the scale is whole.
    static std::string scaled(const std::string& name, double scale);

    // Fails the current test, and leaves pictures of what is wrong, when `picture` does not look as it was kept.
    static void compare(const std::string& name, Picture& picture);
};

} // namespace haloric
