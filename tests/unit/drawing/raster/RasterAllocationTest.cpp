// Drawing a frame like the previous one allocates nothing. The caller keeps the paths.
#include "drawing/raster/Picture.h"
#include "drawing/raster/RasterCanvas.h"
#include "support/AllocationCounter.h"

namespace haloric {
namespace {

struct Frame {
    Rect window;
    Path outside = Path::rect({0, 0, 300, 200}).add(RoundedRect{window, 11});
    Path inside = Path::roundedRect(window, 11);
    Path line = Path::roundedRect(window.insetBy(1.5), 9.5);
    Path ring = Path::roundedRect(window.insetBy(-12), 23);

    explicit Frame(const Rect& newWindow) : window(newWindow) {}

    void draw(RasterCanvas& canvas) const
    {
        const Color blue{0, 0.5, 1, 0.8};
        canvas.save();
        canvas.clip(outside, FillRule::evenOdd);
        canvas.setShadow({18, {0, 0}, blue});
        canvas.fill(inside, blue, FillRule::nonZero);
        canvas.restore();
        canvas.save();
        canvas.clip(inside, FillRule::nonZero);
        canvas.fillRect({window.x, window.maxY() - 28, window.width, 28}, blue, canvas.compositingOperation());
        canvas.restore();
        canvas.stroke(line, blue, 3);
        canvas.stroke(ring, blue, 3);
        canvas.fill(outside, blue, FillRule::evenOdd);
        canvas.setBlendMode(BlendMode::clear);
        canvas.fill(inside, blue, FillRule::nonZero);
        canvas.setBlendMode(BlendMode::normal);
    }
};

TEST(RasterAllocation, frames_after_the_first_allocate_nothing)
{
    Picture picture(300, 200);
    RasterResources resources;
    const std::vector<PixelRect> damage{{0, 0, 300, 60}, {0, 50, 60, 150}, {200, 40, 60, 100}};
    std::vector<Frame> frames;
    for (int i = 0; i < 8; ++i) // a drag and a change of size
        frames.emplace_back(Rect{40.0 + i, 45.0, 180.0 + 2 * i, 100.0 - i});
    for (int round = 0; round < 2; ++round) {
        const std::size_t before = allocationCount();
        for (const Frame& frame : frames) {
            RasterCanvas canvas(resources, picture.buffer(), {1, {300, 200}, 0, 0}, RasterContents::cleared, damage);
            frame.draw(canvas);
        }
        if (round > 0) {
            EXPECT_EQ(allocationCount() - before, 0u);
        }
    }
}

} // namespace
} // namespace haloric
