#include "menubar/MenuBarIcon.h"

#include "drawing/RecordingCanvas.h"

namespace haloric {
namespace {

using testing::ElementsAre;
using Recording = RecordingCanvas;

const Color kBlack{0, 0, 0, 1};

TEST(MenuBarIconTest, is_a_flipped_template_of_18_by_18_points)
{
    const DrawnImage icon = MenuBarIcon::make();
    EXPECT_EQ(icon.size, (Size{18, 18}));
    EXPECT_TRUE(icon.isTemplate);
    EXPECT_TRUE(icon.isFlipped);
}

TEST(MenuBarIconTest, is_four_corner_brackets_around_a_small_window)
{
    RecordingCanvas canvas;
    MenuBarIcon::make().draw(canvas, {});
    const std::vector<Polyline> brackets{
        {{{1.5, 5.5}, {1.5, 2}, {5, 2}}},
        {{{13, 2}, {16.5, 2}, {16.5, 5.5}}},
        {{{1.5, 12.5}, {1.5, 16}, {5, 16}}},
        {{{13, 16}, {16.5, 16}, {16.5, 12.5}}},
    };
    EXPECT_THAT(canvas.calls(),
                ElementsAre(Recording::StrokeLines{brackets, kBlack, {1.6, LineCap::round, LineJoin::round}},
                            Recording::Stroke{Path::roundedRect({5.5, 6.5, 7, 5}, 1.1), kBlack, 1.5}));
}

} // namespace
} // namespace haloric
