#include "menubar/Swatch.h"

#include "drawing/RecordingCanvas.h"

namespace haloric {
namespace {

using testing::ElementsAre;
using Recording = RecordingCanvas;

const RGBA kTeal{0.35, 0.78, 0.98, 1};
const SystemColors kColors{.separator = {0, 0, 0, 0.1}};

TEST(SwatchTest, is_14_by_14_points_in_its_own_colours)
{
    const DrawnImage image = swatch(kTeal);
    EXPECT_EQ(image.size, (Size{14, 14}));
    EXPECT_FALSE(image.isTemplate);
}

TEST(SwatchTest, is_a_disc_within_an_edge_of_the_separator_colour)
{
    RecordingCanvas canvas;
    swatch(kTeal).draw(canvas, kColors);
    const Path disc = Path::roundedRect({1, 1, 12, 12}, 6);
    EXPECT_THAT(canvas.calls(), ElementsAre(Recording::Fill{disc, {0.35, 0.78, 0.98, 1}, FillRule::nonZero},
                                            Recording::Stroke{disc, kColors.separator, 1}));
}

} // namespace
} // namespace haloric
