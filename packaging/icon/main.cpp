// Draws the application's icon:  haloric-icon FILE.icns   or   haloric-icon FILE.png PIXELS
#include "drawing/icon/IconPicture.h"
#include "drawing/raster/Png.h"
#include "icon/IconFile.h"

#include <charconv>
#include <fstream>
#include <iostream>
#include <string>
#include <string_view>

using namespace haloric;

namespace {

constexpr int kLargest = 4096;

bool writeIcon(const std::string& path)
{
    std::ofstream file(path, std::ios::binary);
    file << IconFile::bytes();
    file.close();
    return file.good();
}

bool writePicture(const std::string& path, std::string_view size)
{
    int pixels = 0;
    const auto [end, error] = std::from_chars(size.data(), size.data() + size.size(), pixels);
    if (error != std::errc() || end != size.data() + size.size() || pixels < 1 || pixels > kLargest)
        return false;
    return Png::write(IconPicture::draw(pixels).buffer(), path);
}

} // namespace

int main(int argumentCount, char** argumentValues)
{
    if (argumentCount != 2 && argumentCount != 3) {
        std::cerr << "usage: haloric-icon FILE.icns\n       haloric-icon FILE.png PIXELS\n";
        return 2;
    }
    const std::string path = argumentValues[1];
    if (argumentCount == 2 ? writeIcon(path) : writePicture(path, argumentValues[2]))
        return 0;
    std::cerr << "haloric-icon: cannot write " << path << '\n';
    return 1;
}
