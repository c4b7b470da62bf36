#include "hosts/linux/tray/TrayPicture.h"

#include "drawing/raster/ImageRaster.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace haloric {

namespace {

constexpr Color kDark{0.1, 0.1, 0.1, 1};
constexpr Color kLight{1, 1, 1, 1};
constexpr double kRimOpacity = 1;
constexpr int kSidePerRimPixel = 24;
constexpr unsigned kOpaque = 255;

unsigned alphaAt(const Picture& picture, int x, int y)
{
    const bool isInside = x >= 0 && y >= 0 && x < picture.width && y < picture.height;
    return isInside ? picture.at(x, y) >> 24U : 0;
}

std::uint32_t premultiplied(const Color& color, double alpha)
{
    const auto channel = [alpha](double value) {
        return static_cast<std::uint32_t>(std::lround(std::clamp(value, 0.0, 1.0) * alpha));
    };
    return static_cast<std::uint32_t>(std::lround(alpha)) << 24U | channel(color.red) << 16U |
           channel(color.green) << 8U | channel(color.blue);
}

// `above` over `below`, both premultiplied.
std::uint32_t over(std::uint32_t above, std::uint32_t below)
{
    const std::uint32_t rest = kOpaque - (above >> 24U);
    std::uint32_t result = 0;
    for (unsigned shift = 0; shift < 32; shift += 8) {
        const std::uint32_t under = ((below >> shift) & 0xFFU) * rest;
        result |= (((above >> shift) & 0xFFU) + (under + kOpaque / 2) / kOpaque) << shift;
    }
    return result;
}

// The greatest opacity within `radius` pixels.
unsigned widened(const Picture& shape, int x, int y, int radius)
{
    unsigned alpha = 0;
    for (int down = -radius; down <= radius; ++down) {
        for (int right = -radius; right <= radius; ++right) {
            if (down * down + right * right <= radius * radius)
                alpha = std::max(alpha, alphaAt(shape, x + right, y + down));
        }
    }
    return alpha;
}

Picture coloured(const Picture& shape, const Color& color)
{
    Picture result(shape.width, shape.height);
    for (std::size_t index = 0; index < shape.pixels.size(); ++index)
        result.pixels[index] = premultiplied(color, shape.pixels[index] >> 24U);
    return result;
}

void addRim(Picture& picture, const Picture& shape, const Color& color)
{
    const int radius = std::max(1, picture.width / kSidePerRimPixel);
    for (int y = 0; y < picture.height; ++y) {
        for (int x = 0; x < picture.width; ++x) {
            auto& pixel = picture.pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(picture.width) +
                                         static_cast<std::size_t>(x)];
            pixel = over(pixel, premultiplied(color, widened(shape, x, y, radius) * kRimOpacity));
        }
    }
}

} // namespace

Picture TrayPicture::draw(const DrawnImage& image, int side, const std::optional<Color>& textColor)
{
    Picture result(side, side);
    const double larger = std::max(image.size.width, image.size.height);
    if (!(larger > 0))
        return result;
    const Picture drawn = ImageRaster::render(image, side / larger, {});
    for (int y = 0; y < std::min(side, drawn.height); ++y)
        std::copy_n(drawn.pixels.begin() + y * drawn.width, std::min(side, drawn.width),
                    result.pixels.begin() + y * side);
    if (!image.isTemplate)
        return result;
    Picture tinted = coloured(result, textColor.value_or(kDark));
    if (!textColor)
        addRim(tinted, result, kLight);
    return tinted;
}

} // namespace haloric
