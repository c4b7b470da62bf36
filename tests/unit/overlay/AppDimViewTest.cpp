#include "overlay/AppDimView.h"

#include "drawing/RecordingCanvas.h"

namespace haloric {
namespace {

using Recorded = RecordingCanvas;
using Calls = std::vector<RecordingCanvas::Call>;

class AppDimViewTest : public testing::Test {
protected:
    static constexpr Rect kBounds{0, 0, 1000, 800};
    static constexpr Color kDim{0.1, 0.2, 0.3, 0.35};

    AppDimViewTest()
    {
        view.settings.dimEnabled = true;
        view.settings.dimScope = DimScope::selectedApps;
        view.settings.dimColor = {0.1, 0.2, 0.3, 0.9};
        view.settings.dimOpacity = 0.35;
        view.settings.cornerRadius = 12;
    }

    Calls draw()
    {
        RecordingCanvas canvas;
        view.draw(canvas, kBounds);
        return canvas.calls();
    }

    static Recorded::Fill fill(const Rect& rect, double radius)
    {
        return {Path::roundedRect(rect, radius), kDim, FillRule::nonZero};
    }

    const Recorded::SetBlendMode normal{BlendMode::normal};
    const Recorded::SetBlendMode clear{BlendMode::clear};
    AppDimView view;
};

TEST_F(AppDimViewTest, starts_with_the_default_settings_and_no_windows)
{
    const AppDimView fresh;
    EXPECT_EQ(fresh.settings, Settings());
    EXPECT_TRUE(fresh.windows.empty());
    EXPECT_FALSE(fresh.isOpaque());
    EXPECT_FALSE(fresh.isFlipped());
}

TEST_F(AppDimViewTest, windows_are_equal_when_rectangle_and_dimming_are)
{
    const AppDimView::Window window{{1, 2, 3, 4}, true};
    EXPECT_EQ(window, (AppDimView::Window{{1, 2, 3, 4}, true}));
    EXPECT_NE(window, (AppDimView::Window{{1, 2, 3, 5}, true}));
    EXPECT_NE(window, (AppDimView::Window{{1, 2, 3, 4}, false}));
}

TEST_F(AppDimViewTest, draws_only_when_dimming_is_on_for_selected_applications)
{
    view.windows = {{{10, 10, 100, 100}, true}};
    EXPECT_FALSE(draw().empty());
    EXPECT_EQ(view.paintedArea(kBounds), (std::vector<Rect>{{9, 9, 102, 102}}));
    view.settings.dimScope = DimScope::allWindows;
    EXPECT_TRUE(draw().empty());
    EXPECT_TRUE(view.paintedArea(kBounds).empty());
    view.settings.dimScope = DimScope::selectedApps;
    view.settings.dimEnabled = false;
    EXPECT_TRUE(draw().empty());
    EXPECT_TRUE(view.paintedArea(kBounds).empty());
}

TEST_F(AppDimViewTest, paints_and_clears_the_windows_in_their_order)
{
    const Rect back{10, 10, 100, 100};
    const Rect middle{50, 50, 100, 100};
    const Rect front{80, 80, 100, 100};
    view.windows = {{back, true}, {middle, false}, {front, true}};
    EXPECT_EQ(draw(), (Calls{normal, fill(back, 12), clear, fill(middle, 12), normal, fill(front, 12), normal}));
}

TEST_F(AppDimViewTest, overlapping_dimmed_windows_are_filled_one_after_the_other)
{
    const Rect back{10, 10, 100, 100};
    const Rect front{50, 50, 100, 100};
    view.windows = {{back, true}, {front, true}};
    EXPECT_EQ(draw(), (Calls{normal, fill(back, 12), normal, fill(front, 12), normal}));
}

TEST_F(AppDimViewTest, the_blend_mode_is_normal_again_after_a_clear_window)
{
    view.windows = {{{10, 10, 100, 100}, false}};
    EXPECT_EQ(draw().back(), RecordingCanvas::Call(normal));
}

TEST_F(AppDimViewTest, skips_windows_that_are_not_on_the_screen)
{
    view.windows = {{{1000, 10, 100, 100}, true}, {{-100, 10, 100, 100}, false}, {{5, 5, 0, 10}, true}};
    EXPECT_EQ(draw(), Calls{normal});
    EXPECT_TRUE(view.paintedArea(kBounds).empty());
}

TEST_F(AppDimViewTest, the_radius_is_at_most_half_of_the_width_and_of_the_height)
{
    view.windows = {{{10, 10, 10, 100}, true}, {{10, 10, 100, 6}, true}};
    EXPECT_EQ(draw(), (Calls{normal, fill({10, 10, 10, 100}, 5), normal, fill({10, 10, 100, 6}, 3), normal}));
    view.settings.cornerRadius = -4;
    view.windows = {{{10, 10, 100, 100}, true}};
    EXPECT_EQ(draw(), (Calls{normal, fill({10, 10, 100, 100}, 0), normal}));
}

TEST_F(AppDimViewTest, clear_windows_add_nothing_to_the_painted_area)
{
    view.windows = {{{10, 10, 100, 100}, false}, {{200, 10, 100, 100}, true}};
    EXPECT_EQ(view.paintedArea(kBounds), (std::vector<Rect>{{199, 9, 102, 102}}));
}

} // namespace
} // namespace haloric
