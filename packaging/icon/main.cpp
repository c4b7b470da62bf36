// haloric-icon FILE.png PIXELS: draws the application's icon.
#include "drawing/raster/Png.h"
#include "icon/IconPicture.h"

#include <algorithm>
#include <charconv>
#include <iostream>
#include <string>
#include <string_view>

using namespace haloric;

namespace {

constexpr int kLargest = 4096;
constexpr int kWrongUsage = 2;

// 0 when `text` is no size.
int sizeFrom(std::string_view text)
{
    int pixels = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), pixels);
    return error == std::errc() && end == text.data() + text.size() && pixels <= kLargest ? std::max(pixels, 0) : 0;
}

} // namespace

int main(int argumentCount, char** argumentValues)
{
    const int pixels = argumentCount == 3 ? sizeFrom(argumentValues[2]) : 0;
    if (pixels == 0) {
        std::cerr << "usage: haloric-icon FILE.png PIXELS\n(1 to " << kLargest << " pixels)\n";
        return kWrongUsage;
    }
    const std::string path = argumentValues[1];
    if (Png::write(IconPicture::draw(pixels).buffer(), path))
        return 0;
    std::cerr << "haloric-icon: cannot write " << path << '\n';
    return 1;
}
