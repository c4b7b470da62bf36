#include "drawing/raster/Png.h"

#include "drawing/raster/Blend.h"

#include <cairo.h>
#include <memory>

namespace haloric {

namespace {

struct SurfaceDeleter {
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
};
using Surface = std::unique_ptr<cairo_surface_t, SurfaceDeleter>;

bool isWhole(const Surface& surface) { return cairo_surface_status(surface.get()) == CAIRO_STATUS_SUCCESS; }

Surface surfaceOf(const PixelBuffer& pixels)
{
    return Surface(cairo_image_surface_create_for_data(reinterpret_cast<unsigned char*>(pixels.data),
                                                       CAIRO_FORMAT_ARGB32, pixels.width, pixels.height,
                                                       pixels.stride));
}

cairo_status_t append(void* bytes, const unsigned char* data, unsigned int length)
{
    static_cast<std::string*>(bytes)->append(reinterpret_cast<const char*>(data), length);
    return CAIRO_STATUS_SUCCESS;
}

} // namespace

bool Png::write(const PixelBuffer& pixels, const std::string& path)
{
    const Surface surface = surfaceOf(pixels);
    return isWhole(surface) && cairo_surface_write_to_png(surface.get(), path.c_str()) == CAIRO_STATUS_SUCCESS;
}

std::string Png::encode(const PixelBuffer& pixels)
{
    const Surface surface = surfaceOf(pixels);
    std::string bytes;
    if (!isWhole(surface) || cairo_surface_write_to_png_stream(surface.get(), &append, &bytes) != CAIRO_STATUS_SUCCESS)
        return {};
    return bytes;
}

std::optional<Picture> Png::read(const std::string& path)
{
    const Surface surface(cairo_image_surface_create_from_png(path.c_str()));
    if (!isWhole(surface))
        return std::nullopt;
    const bool hasAlpha = cairo_image_surface_get_format(surface.get()) == CAIRO_FORMAT_ARGB32;
    if (!hasAlpha && cairo_image_surface_get_format(surface.get()) != CAIRO_FORMAT_RGB24)
        return std::nullopt;
    const PixelBuffer pixels{reinterpret_cast<std::uint32_t*>(cairo_image_surface_get_data(surface.get())),
                             cairo_image_surface_get_width(surface.get()),
                             cairo_image_surface_get_height(surface.get()),
                             cairo_image_surface_get_stride(surface.get())};
    Picture picture(pixels.width, pixels.height);
    for (int y = 0; y < picture.height; ++y)
        copyPixels(picture.buffer().row(y), pixels.row(y), static_cast<std::size_t>(picture.width));
    if (!hasAlpha) // the file has no alpha: every pixel is opaque
        for (std::uint32_t& pixel : picture.pixels)
            pixel |= 0xff000000;
    return picture;
}

} // namespace haloric
