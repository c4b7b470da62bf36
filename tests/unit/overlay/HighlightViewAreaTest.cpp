// Where the highlight paints at all, and where a step of the pulse changes it: hosts store and send nothing else.
#include "overlay/HighlightView.h"

#include "unit/overlay/DrawnAt.h"
#include "unit/overlay/RandomHighlightViews.h"

#include <cmath>

namespace haloric {
namespace {

bool coveredBy(const std::vector<Rect>& area, Point p)
{
    return std::ranges::any_of(area, [p](const Rect& rect) { return contains(rect, p); });
}

double areaOf(const std::vector<Rect>& rects)
{
    double sum = 0;
    for (const Rect& rect : rects)
        sum += rect.width * rect.height;
    return sum;
}

TEST(HighlightViewAreaTest, every_point_that_is_drawn_lies_in_the_painted_area)
{
    RandomHighlightViews random;
    int drawn = 0;
    for (int i = 0; i < 4000; ++i) {
        HighlightView view = random.make();
        const Rect bounds{0, 0, 2 * view.windowRect.x + view.windowRect.width,
                          2 * view.windowRect.y + view.windowRect.height};
        RecordingCanvas canvas;
        view.draw(canvas, bounds);
        const std::vector<Rect> area = view.paintedArea(bounds);
        for (int j = 0; j < 60; ++j) {
            const Point p = random.point(view.windowRect);
            if (!drawnAt(canvas, p))
                continue;
            ++drawn;
            ASSERT_TRUE(coveredBy(area, p)) << "view " << i << " at " << p.x << ", " << p.y;
        }
    }
    EXPECT_GT(drawn, 10'000);
}

TEST(HighlightViewAreaTest, every_point_of_two_pulse_rings_lies_in_the_damage_between_them)
{
    RandomHighlightViews random;
    int drawn = 0;
    for (int i = 0; i < 4000; ++i) {
        HighlightView view = random.make();
        view.settings.borderEnabled = false;
        view.settings.glowEnabled = false;
        view.settings.tintEnabled = false;
        const double before = view.pulseProgress;
        const double after = random.pick({0, 0.001, 0.05, 0.3, 0.52, 0.999});
        RecordingCanvas canvas;
        view.draw(canvas, Rect());
        view.pulseProgress = after;
        view.draw(canvas, Rect());
        const std::vector<Rect> damage = view.pulseDamage(before, after);
        for (int j = 0; j < 60; ++j) {
            const Point p = random.point(view.windowRect);
            if (!drawnAt(canvas, p))
                continue;
            ++drawn;
            ASSERT_TRUE(coveredBy(damage, p)) << "view " << i << " at " << p.x << ", " << p.y;
        }
    }
    EXPECT_GT(drawn, 5'000);
}

HighlightView ordinaryView()
{
    HighlightView view;
    view.windowRect = {40, 40, 800, 600};
    view.tintHeight = 28;
    return view;
}

TEST(HighlightViewAreaTest, the_interior_of_the_window_is_never_painted)
{
    HighlightView view = ordinaryView();
    const std::vector<Rect> area = view.paintedArea({0, 0, 880, 680});
    EXPECT_FALSE(coveredBy(area, {440, 340}));
    EXPECT_FALSE(coveredBy(area, {40 + 13, 340}));
    EXPECT_FALSE(coveredBy(area, {440, 640 - 13}));
    EXPECT_TRUE(coveredBy(area, {41, 340}));

    view.settings.tintEnabled = true;
    EXPECT_TRUE(coveredBy(view.paintedArea({}), {440, 640 - 27}));
    EXPECT_FALSE(coveredBy(view.paintedArea({}), {440, 640 - 30}));
    EXPECT_FALSE(coveredBy(view.paintedArea({}), {440, 340}));
}

TEST(HighlightViewAreaTest, the_area_reaches_as_far_as_glow_and_pulse_do)
{
    HighlightView view = ordinaryView();
    const auto outermost = [&view] {
        double least = 1e9;
        for (const Rect& rect : view.paintedArea({}))
            least = std::min(least, rect.minX());
        return 40 - least;
    };
    view.settings.glowRadius = 50;
    EXPECT_EQ(outermost(), 51);
    view.settings.glowEnabled = false;
    EXPECT_EQ(outermost(), 28.5);
    view.settings.pulseEnabled = false;
    EXPECT_EQ(outermost(), 1);
}

TEST(HighlightViewAreaTest, the_area_stays_the_same_during_a_pulse)
{
    HighlightView view = ordinaryView();
    const std::vector<Rect> before = view.paintedArea({});
    view.pulseProgress = 0.7;
    EXPECT_EQ(view.paintedArea({}), before);
}

TEST(HighlightViewAreaTest, nothing_to_draw_has_no_area)
{
    HighlightView view = ordinaryView();
    view.windowRect.width = 0;
    EXPECT_TRUE(view.paintedArea({}).empty());
    view = ordinaryView();
    view.settings.borderWidth = 0;
    view.settings.glowRadius = 0;
    view.settings.tintEnabled = true;
    view.tintHeight.reset();
    view.settings.pulseEnabled = false;
    EXPECT_TRUE(view.paintedArea({}).empty());
}

TEST(HighlightViewAreaTest, a_step_of_the_pulse_damages_little)
{
    const HighlightView view = ordinaryView();
    const double full = 864.0 * 664.0;
    EXPECT_LT(areaOf(view.pulseDamage(0.5, 0.53)), full / 12);
    EXPECT_EQ(view.pulseDamage(0.5, 0.53).size(), 8U);
}

TEST(HighlightViewAreaTest, bars_only_would_leave_the_corners_of_the_ring_behind)
{
    HighlightView view = ordinaryView();
    view.settings.borderEnabled = false;
    view.settings.glowEnabled = false;
    view.pulseProgress = 0.5;
    RecordingCanvas canvas;
    view.draw(canvas, {});
    const std::vector<Rect> damage = view.pulseDamage(0.5, 0.53);
    const std::vector<Rect> bars(damage.begin(), damage.begin() + 4);
    // The middle of the ring's corner: radius 30.5 around a point 11 inside both edges.
    const double diagonal = 40 + 11 - 30.5 / std::sqrt(2.0);
    const Point corner{diagonal, diagonal};
    ASSERT_TRUE(drawnAt(canvas, corner));
    EXPECT_FALSE(coveredBy(bars, corner));
    EXPECT_TRUE(coveredBy(damage, corner));
}

TEST(HighlightViewAreaTest, without_a_ring_before_or_after_nothing_is_damaged)
{
    HighlightView view = ordinaryView();
    EXPECT_TRUE(view.pulseDamage(0, 0).empty());
    EXPECT_TRUE(view.pulseDamage(0, 1).empty());
    EXPECT_FALSE(view.pulseDamage(0.9, 0).empty());
    EXPECT_FALSE(view.pulseDamage(0, 0.1).empty());
    view.settings.pulseEnabled = false;
    EXPECT_TRUE(view.pulseDamage(0.4, 0.5).empty());
    view.settings.pulseEnabled = true;
    view.windowRect.height = 0;
    EXPECT_TRUE(view.pulseDamage(0.4, 0.5).empty());
}

} // namespace
} // namespace haloric
