#include "drawing/raster/ImageRaster.h"

#include "drawing/FlippedCanvas.h"
#include "drawing/raster/RasterCanvas.h"

namespace haloric {

Picture ImageRaster::render(const DrawnImage& image, double scale, const SystemColors& colors)
{
    const PixelRect pixels = DeviceSpace(scale, image.size).pixels();
    Picture picture(pixels.width, pixels.height);
    if (!image.draw)
        return picture;
    RasterResources resources;
    RasterCanvas canvas(resources, picture.buffer(), {scale, image.size, 0, 0}, RasterContents::transparent);
    if (image.isFlipped) {
        FlippedCanvas flipped(canvas, image.size.height);
        image.draw(flipped, colors);
    } else {
        image.draw(canvas, colors);
    }
    return picture;
}

} // namespace haloric
