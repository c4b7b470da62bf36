#include "drawing/RecordingCanvas.h"

namespace haloric {
namespace {

using testing::ElementsAre;
using Recording = RecordingCanvas;

const Color kRed{1, 0, 0, 1};
const Rect kRect{1, 2, 30, 40};

TEST(RecordingCanvas, calls_are_kept_in_order_and_compare_by_value)
{
    RecordingCanvas canvas;
    canvas.save();
    canvas.clip(Path::rect(kRect), FillRule::evenOdd);
    canvas.setShadow({18, {0, 0}, kRed});
    canvas.setBlendMode(BlendMode::clear);
    canvas.fill(Path::roundedRect(kRect, 4), kRed, FillRule::nonZero);
    canvas.fillRect(kRect, kRed, CompositingOperation::copy);
    canvas.stroke(Path::rect(kRect), kRed, 3);
    const std::vector<Polyline> lines{{{{1, 2}, {3, 4}}}};
    const LineStyle style{2, LineCap::round, LineJoin::round};
    canvas.strokeLines(lines, kRed, style);
    canvas.restore();
    EXPECT_THAT(canvas.calls(),
                ElementsAre(Recording::Save{}, Recording::Clip{Path::rect(kRect), FillRule::evenOdd},
                            Recording::SetShadow{{18, {0, 0}, kRed}}, Recording::SetBlendMode{BlendMode::clear},
                            Recording::Fill{Path::roundedRect(kRect, 4), kRed, FillRule::nonZero},
                            Recording::FillRect{kRect, kRed, CompositingOperation::copy},
                            Recording::Stroke{Path::rect(kRect), kRed, 3}, Recording::StrokeLines{lines, kRed, style},
                            Recording::Restore{}));
}

TEST(RecordingCanvas, a_drawing_has_the_state_at_its_time)
{
    RecordingCanvas canvas;
    canvas.save();
    canvas.clip(Path::rect(kRect), FillRule::evenOdd);
    canvas.setShadow({18, {0, 0}, kRed});
    canvas.fill(Path::rect(kRect), kRed, FillRule::nonZero);
    canvas.restore();
    canvas.stroke(Path::rect(kRect), kRed, 3);

    const Recording::State inside{
        {Recording::Clip{Path::rect(kRect), FillRule::evenOdd}}, Shadow{18, {0, 0}, kRed}, BlendMode::normal};
    EXPECT_THAT(canvas.drawings(),
                ElementsAre(Recording::Drawing{Recording::Fill{Path::rect(kRect), kRed, FillRule::nonZero}, inside},
                            Recording::Drawing{Recording::Stroke{Path::rect(kRect), kRed, 3}, Recording::State{}}));
}

TEST(RecordingCanvas, a_restore_without_a_save_changes_nothing)
{
    RecordingCanvas canvas;
    canvas.setBlendMode(BlendMode::clear);
    canvas.restore();
    EXPECT_EQ(canvas.state().blendMode, BlendMode::clear);
    EXPECT_EQ(canvas.openSaves(), 0u);
}

TEST(RecordingCanvas, the_operation_is_source_over_until_set)
{
    RecordingCanvas canvas;
    EXPECT_EQ(canvas.compositingOperation(), CompositingOperation::sourceOver);
    canvas.setCompositingOperation(CompositingOperation::copy);
    EXPECT_EQ(canvas.compositingOperation(), CompositingOperation::copy);
}

} // namespace
} // namespace haloric
