#include "overlay/DimView.h"

#include "unit/overlay/DrawnAt.h"

namespace haloric {
namespace {

using Recorded = RecordingCanvas;
using Calls = std::vector<RecordingCanvas::Call>;

class DimViewTest : public testing::Test {
protected:
    static constexpr Rect kBounds{0, 0, 1000, 800};
    static constexpr Color kDim{0.1, 0.2, 0.3, 0.35};

    DimViewTest()
    {
        view.settings.dimEnabled = true;
        view.settings.dimColor = {0.1, 0.2, 0.3, 0.9};
        view.settings.dimOpacity = 0.35;
        view.settings.cornerRadius = 11;
        view.settings.accent = {1, 0, 0, 1};
    }

    Calls draw()
    {
        RecordingCanvas canvas;
        view.draw(canvas, kBounds);
        return canvas.calls();
    }

    DimView view;
};

TEST_F(DimViewTest, starts_with_the_default_settings_and_no_hole)
{
    const DimView fresh;
    EXPECT_EQ(fresh.settings, Settings());
    EXPECT_FALSE(fresh.holeRect.has_value());
    EXPECT_FALSE(fresh.isOpaque());
    EXPECT_FALSE(fresh.isFlipped());
}

TEST_F(DimViewTest, draws_nothing_when_dimming_is_off)
{
    view.settings.dimEnabled = false;
    view.holeRect = Rect{100, 100, 300, 200};
    EXPECT_TRUE(draw().empty());
    EXPECT_TRUE(view.paintedArea(kBounds).empty());
}

TEST_F(DimViewTest, tints_the_screen_but_for_a_rounded_hole)
{
    view.holeRect = Rect{100, 100, 300, 200};
    EXPECT_EQ(draw(), Calls{(Recorded::Fill{Path::rect(kBounds).add(RoundedRect{{100, 100, 300, 200}, 11}), kDim,
                                            FillRule::evenOdd})});
}

TEST_F(DimViewTest, does_not_look_at_the_scope)
{
    view.settings.dimScope = DimScope::selectedApps;
    EXPECT_FALSE(draw().empty());
}

TEST_F(DimViewTest, tints_the_whole_screen_without_a_hole_in_it)
{
    const Calls whole{(Recorded::Fill{Path::rect(kBounds), kDim, FillRule::evenOdd})};
    EXPECT_EQ(draw(), whole);
    for (const Rect& outside : {Rect{1000, 100, 300, 200}, Rect{-300, 0, 300, 200}, Rect{10, 10, 0, 5}}) {
        view.holeRect = outside;
        EXPECT_EQ(draw(), whole);
        EXPECT_EQ(view.paintedArea(kBounds), std::vector<Rect>{kBounds});
    }
}

TEST_F(DimViewTest, a_hole_partly_off_the_screen_is_still_cut)
{
    view.holeRect = Rect{900, 700, 300, 300};
    RecordingCanvas canvas;
    view.draw(canvas, kBounds);
    EXPECT_FALSE(drawnAt(canvas, {990, 790}));
    EXPECT_TRUE(drawnAt(canvas, {890, 790}));
}

TEST_F(DimViewTest, the_hole_keeps_its_radius_however_small_it_is)
{
    view.settings.cornerRadius = 40;
    view.holeRect = Rect{100, 100, 20, 20};
    const auto calls = draw();
    EXPECT_EQ(std::get<RoundedRect>(std::get<Recorded::Fill>(calls[0]).path.shapes()[1]).radius, 40);
    view.settings.cornerRadius = -3;
    const auto square = draw();
    EXPECT_EQ(std::get<RoundedRect>(std::get<Recorded::Fill>(square[0]).path.shapes()[1]).radius, 0);
}

TEST_F(DimViewTest, only_the_middle_of_the_hole_is_outside_the_painted_area)
{
    view.holeRect = Rect{100, 100, 300, 200};
    for (const double radius : {-5.0, 0.0, 11.0, 90.0, 1e9}) {
        view.settings.cornerRadius = radius;
        RecordingCanvas canvas;
        view.draw(canvas, kBounds);
        const auto area = view.paintedArea(kBounds);
        for (double x = 0.5; x < 1000; x += 3) {
            for (double y = 0.5; y < 800; y += 3) {
                const bool inArea = std::ranges::any_of(area, [&](const Rect& r) { return contains(r, {x, y}); });
                ASSERT_TRUE(inArea || !drawnAt(canvas, {x, y})) << radius << " at " << x << ", " << y;
            }
        }
    }
    view.settings.cornerRadius = 11;
    for (const Rect& rect : view.paintedArea(kBounds))
        EXPECT_FALSE(contains(rect, {250, 200}));
}

} // namespace
} // namespace haloric
