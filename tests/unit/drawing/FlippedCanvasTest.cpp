#include "drawing/FlippedCanvas.h"

#include "drawing/RecordingCanvas.h"

namespace haloric {
namespace {

using testing::ElementsAre;
using Recording = RecordingCanvas;

class FlippedCanvasTest : public testing::Test {
protected:
    static constexpr Color kRed{1, 0, 0, 1};
    static constexpr Rect kRect{1, 2, 30, 40};
    static constexpr Rect kFlipped{1, 58, 30, 40}; // in a view 100 high

    RecordingCanvas below;
    FlippedCanvas canvas{below, 100};
};

TEST_F(FlippedCanvasTest, shapes_are_mirrored_from_top_to_bottom)
{
    canvas.clip(Path::rect(kRect), FillRule::evenOdd);
    canvas.fill(Path::roundedRect(kRect, 4).add(kRect), kRed, FillRule::nonZero);
    canvas.fillRect(kRect, kRed, CompositingOperation::copy);
    canvas.stroke(Path::rect(kRect), kRed, 3);
    EXPECT_THAT(below.calls(),
                ElementsAre(Recording::Clip{Path::rect(kFlipped), FillRule::evenOdd},
                            Recording::Fill{Path::roundedRect(kFlipped, 4).add(kFlipped), kRed, FillRule::nonZero},
                            Recording::FillRect{kFlipped, kRed, CompositingOperation::copy},
                            Recording::Stroke{Path::rect(kFlipped), kRed, 3}));
}

TEST_F(FlippedCanvasTest, lines_are_mirrored_point_by_point)
{
    const LineStyle style{2, LineCap::round, LineJoin::round};
    canvas.strokeLines(std::vector<Polyline>{{{{1, 2}, {3, 90}}}, {{{5, 100}, {6, 0}}}}, kRed, style);
    EXPECT_THAT(below.calls(),
                ElementsAre(Recording::StrokeLines{{{{{1, 98}, {3, 10}}}, {{{5, 0}, {6, 100}}}}, kRed, style}));
}

TEST_F(FlippedCanvasTest, the_state_passes_as_it_is)
{
    canvas.save();
    canvas.setShadow({18, {1, 2}, kRed});
    canvas.setBlendMode(BlendMode::clear);
    canvas.restore();
    EXPECT_THAT(below.calls(), ElementsAre(Recording::Save{}, Recording::SetShadow{{18, {1, 2}, kRed}},
                                           Recording::SetBlendMode{BlendMode::clear}, Recording::Restore{}));
    below.setCompositingOperation(CompositingOperation::copy);
    EXPECT_EQ(canvas.compositingOperation(), CompositingOperation::copy);
}

} // namespace
} // namespace haloric
