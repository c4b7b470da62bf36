// A view whose corner lies between pixels.
#include "overlay/DimView.h"
#include "overlay/HighlightView.h"
#include "support/PictureDifference.h"
#include "support/RasterScenes.h"

namespace haloric {
namespace {

constexpr Size kView{170, 150};
constexpr Rect kWindow{40, 40, 90, 70};
constexpr Rect kBounds{0, 0, kView.width, kView.height};

Picture drawn(ContentView& view, double scale, Point offset)
{
    const PixelRect pixels = DeviceSpace(scale, kView).pixels();
    Picture picture(pixels.width, pixels.height);
    RasterResources resources;
    RasterCanvas canvas(resources, picture.buffer(), {scale, kView, 0, 0, offset}, RasterContents::transparent);
    view.draw(canvas, kBounds);
    return picture;
}

class RasterOffset : public testing::TestWithParam<double> {
protected:
    // The picture of a view at an offset is that of a view in place whose content is moved by the offset.
    template <class Make>
    void expectMoved(Make make)
    {
        const double scale = GetParam();
        for (const Point& offset : {Point{0.25, -0.5}, Point{-0.375, 0.5}, Point{0.5, 0.125}}) {
            auto atOffset = make(kWindow);
            auto moved = make(kWindow.translatedBy(offset.x / scale, -offset.y / scale));
            const auto difference = PictureDifference::of(drawn(atOffset, scale, offset), drawn(moved, scale, Point{}));
            EXPECT_EQ(difference.pixels, 0) << "by up to " << difference.largest << " at " << difference.x << ", "
                                            << difference.y << ", offset " << offset.x << ", " << offset.y;
        }
    }

    static HighlightView highlight(const Rect& window)
    {
        HighlightView view;
        view.settings.glowEnabled = view.settings.borderEnabled = view.settings.tintEnabled = false;
        view.windowRect = window;
        view.tintHeight = 28;
        return view;
    }
};

TEST_P(RasterOffset, moves_the_glow)
{
    expectMoved([](const Rect& window) {
        HighlightView view = highlight(window);
        view.settings.glowEnabled = true;
        return view;
    });
}

TEST_P(RasterOffset, moves_the_tint)
{
    expectMoved([](const Rect& window) {
        HighlightView view = highlight(window);
        view.settings.tintEnabled = true;
        return view;
    });
}

TEST_P(RasterOffset, moves_the_hole_of_the_dimming_and_dims_up_to_every_edge)
{
    expectMoved([](const Rect& window) {
        DimView view;
        view.settings.dimEnabled = true;
        view.holeRect = window;
        return view;
    });
}

INSTANTIATE_TEST_SUITE_P(Scales, RasterOffset, testing::Values(1.0, 1.25, 1.5, 1.75, 2.0, 2.25, 3.0, 4.0));

} // namespace
} // namespace haloric
