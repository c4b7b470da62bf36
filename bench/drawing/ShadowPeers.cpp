#include "drawing/ShadowPeers.h"

#include <algorithm>
#include <cairo.h>
#include <cmath>
#include <cstring>
#include <numbers>
#include <vector>

namespace haloric::bench {

namespace {

using Surface = std::shared_ptr<cairo_surface_t>;

struct Context {
    explicit Context(cairo_surface_t* surface) : context(cairo_create(surface)) {}
    ~Context() { cairo_destroy(context); }
    Context(const Context&) = delete;
    Context& operator=(const Context&) = delete;
    cairo_t* context;
};

Surface maskSurface(int width, int height)
{
    return Surface(cairo_image_surface_create(CAIRO_FORMAT_A8, width, height), cairo_surface_destroy);
}

Surface target(const PixelBuffer& buffer)
{
    return Surface(cairo_image_surface_create_for_data(reinterpret_cast<unsigned char*>(buffer.data),
                                                       CAIRO_FORMAT_ARGB32, buffer.width, buffer.height, buffer.stride),
                   cairo_surface_destroy);
}

void addRoundedRect(cairo_t* context, const Rect& rect, double radius)
{
    constexpr double kQuarter = std::numbers::pi / 2;
    cairo_new_sub_path(context);
    cairo_arc(context, rect.maxX() - radius, rect.minY() + radius, radius, -kQuarter, 0);
    cairo_arc(context, rect.maxX() - radius, rect.maxY() - radius, radius, 0, kQuarter);
    cairo_arc(context, rect.minX() + radius, rect.maxY() - radius, radius, kQuarter, 2 * kQuarter);
    cairo_arc(context, rect.minX() + radius, rect.minY() + radius, radius, 2 * kQuarter, 3 * kQuarter);
    cairo_close_path(context);
}

void clipToOutside(cairo_t* context, const PixelBuffer& buffer, const PeerGlow& glow)
{
    cairo_rectangle(context, 0, 0, buffer.width, buffer.height);
    addRoundedRect(context, glow.window, glow.cornerRadius);
    cairo_set_fill_rule(context, CAIRO_FILL_RULE_EVEN_ODD);
    cairo_clip(context);
    cairo_set_source_rgba(context, 0.04, 0.52, 1, 0.8);
}

// A mask with a border of zeros on every side, so that the loops need no bounds checks.
struct Plane {
    int width;
    int height;
    int radius;
    std::vector<std::uint8_t> bytes;
    std::vector<int> sums;

    Plane(int newWidth, int newHeight, int newRadius)
        : width(newWidth),
          height(newHeight),
          radius(newRadius),
          bytes(static_cast<std::size_t>(stride()) * static_cast<std::size_t>(height + 2 * radius + 1)),
          sums(static_cast<std::size_t>(width))
    {
    }

    int stride() const { return width + 2 * radius + 1; }
    std::uint8_t* row(int y)
    {
        return bytes.data() + static_cast<std::ptrdiff_t>(y + radius + 1) * stride() + radius + 1;
    }
};

void boxBlurAcross(Plane& from, Plane& to)
{
    const int size = 2 * from.radius + 1;
    for (int y = 0; y < from.height; ++y) {
        const std::uint8_t* in = from.row(y);
        std::uint8_t* out = to.row(y);
        int sum = 0;
        for (int x = 0; x < from.radius; ++x)
            sum += in[x];
        for (int x = 0; x < from.width; ++x) {
            sum += (x + from.radius < from.width ? in[x + from.radius] : 0) - in[x - from.radius - 1];
            out[x] = static_cast<std::uint8_t>(sum / size);
        }
    }
}

// All columns at once, row by row.
void boxBlurDown(Plane& from, Plane& to)
{
    const float share = 1 / static_cast<float>(2 * from.radius + 1);
    std::fill(from.sums.begin(), from.sums.end(), 0);
    for (int y = -from.radius; y < from.height; ++y) {
        const std::uint8_t* enters = y + from.radius < from.height ? from.row(y + from.radius) : from.row(-1);
        const std::uint8_t* leaves = y - from.radius - 1 >= 0 ? from.row(y - from.radius - 1) : from.row(-1);
        for (int x = 0; x < from.width; ++x)
            from.sums[static_cast<std::size_t>(x)] += enters[x] - leaves[x];
        if (y < 0)
            continue;
        std::uint8_t* out = to.row(y);
        for (int x = 0; x < from.width; ++x)
            out[x] = static_cast<std::uint8_t>(static_cast<float>(from.sums[static_cast<std::size_t>(x)]) * share);
    }
}

void boxBlur(cairo_surface_t* mask, double blurRadius)
{
    cairo_surface_flush(mask);
    std::uint8_t* data = cairo_image_surface_get_data(mask);
    const int width = cairo_image_surface_get_width(mask);
    const int height = cairo_image_surface_get_height(mask);
    const std::ptrdiff_t stride = cairo_image_surface_get_stride(mask);
    const int radius =
        std::max(1, static_cast<int>(std::lround(blurRadius / 2 * 0.94))); // three passes: sigma = blurRadius / 2
    Plane one(width, height, radius);
    Plane other(width, height, radius);
    for (int y = 0; y < height; ++y)
        std::memcpy(one.row(y), data + y * stride, static_cast<std::size_t>(width));
    for (int pass = 0; pass < 3; ++pass) {
        boxBlurAcross(one, other);
        boxBlurDown(other, one);
    }
    for (int y = 0; y < height; ++y)
        std::memcpy(data + y * stride, one.row(y), static_cast<std::size_t>(width));
    cairo_surface_mark_dirty(mask);
}

void fillMask(cairo_surface_t* mask, const PeerGlow& glow)
{
    const Context mine(mask);
    addRoundedRect(mine.context, glow.window, glow.cornerRadius);
    cairo_fill(mine.context);
}

} // namespace

NinePatchPeer::NinePatchPeer(const PeerGlow& glow)
    : m_corner(static_cast<int>(std::ceil(2 * glow.blurRadius + glow.cornerRadius)))
{
    const int size = 2 * m_corner + 1;
    m_mask = maskSurface(size, size);
    const double side = size - 2 * glow.blurRadius;
    fillMask(m_mask.get(), {{glow.blurRadius, glow.blurRadius, side, side}, glow.cornerRadius, glow.blurRadius});
    boxBlur(m_mask.get(), glow.blurRadius);
}

void NinePatchPeer::drawPiece(cairo_t* context, const Rect& from, const Rect& to) const
{
    cairo_pattern_t* pattern = cairo_pattern_create_for_surface(m_mask.get());
    cairo_matrix_t matrix;
    cairo_matrix_init_translate(&matrix, from.x, from.y);
    cairo_matrix_scale(&matrix, from.width / to.width, from.height / to.height);
    cairo_matrix_translate(&matrix, -to.x, -to.y);
    cairo_pattern_set_matrix(pattern, &matrix);
    cairo_pattern_set_filter(pattern, CAIRO_FILTER_NEAREST);
    cairo_save(context);
    cairo_rectangle(context, to.x, to.y, to.width, to.height);
    cairo_clip(context);
    cairo_mask(context, pattern);
    cairo_restore(context);
    cairo_pattern_destroy(pattern);
}

void NinePatchPeer::draw(const PixelBuffer& buffer, const PeerGlow& glow) const
{
    const Surface surface = target(buffer);
    const Context mine(surface.get());
    clipToOutside(mine.context, buffer, glow);
    const Rect all = glow.window.insetBy(-glow.blurRadius);
    const double corner = m_corner;
    const double from[] = {0, corner, corner + 1, 2 * corner + 1};
    const double across[] = {all.minX(), all.minX() + corner, all.maxX() - corner, all.maxX()};
    const double down[] = {all.minY(), all.minY() + corner, all.maxY() - corner, all.maxY()};
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t j = 0; j < 3; ++j)
            if (i != 1 || j != 1)
                drawPiece(mine.context, {from[i], from[j], from[i + 1] - from[i], from[j + 1] - from[j]},
                          {across[i], down[j], across[i + 1] - across[i], down[j + 1] - down[j]});
}

void drawWithBoxBlurs(const PixelBuffer& buffer, const PeerGlow& glow)
{
    const Surface mask = maskSurface(buffer.width, buffer.height);
    fillMask(mask.get(), glow);
    boxBlur(mask.get(), glow.blurRadius);
    const Surface surface = target(buffer);
    const Context mine(surface.get());
    clipToOutside(mine.context, buffer, glow);
    cairo_mask_surface(mine.context, mask.get(), 0, 0);
}

} // namespace haloric::bench
