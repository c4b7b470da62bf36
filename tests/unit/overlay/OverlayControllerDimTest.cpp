// Dimming of everything but the focused window.
#include "unit/overlay/OverlayControllerFixture.h"

namespace haloric {
namespace {

class OverlayControllerDimTest : public OverlayControllerFixture {
protected:
    OverlayControllerDimTest()
    {
        edit([](Settings& s) { s.dimEnabled = true; });
    }
};

TEST_F(OverlayControllerDimTest, covers_every_screen_with_a_hole_for_the_focused_window)
{
    controller->setState(focused());
    EXPECT_EQ(dim(0)->frame, kPrimary.frame);
    EXPECT_EQ(dim(1)->frame, kSecondary.frame);
    EXPECT_FALSE(dim(0)->displayedBySetFrame);
    EXPECT_EQ(controller->dimViews()[0]->holeRect, kFocused);
    EXPECT_EQ(controller->dimViews()[1]->holeRect, (Rect{-900, 0, 300, 200}));
    EXPECT_FALSE(appDim(0)->visible);
    EXPECT_FALSE(controller->appDimTimerRunning());
}

TEST_F(OverlayControllerDimTest, redraws_only_when_the_hole_changed)
{
    controller->setState(focused());
    EXPECT_EQ(dim(0)->calls.back(), "orderFront");
    toolkit.forgetCalls();
    controller->setState(focused());
    EXPECT_TRUE(dim(0)->calls.empty());
    const Rect moved = kFocused.translatedBy(1, 0);
    controller->setState(focused(moved));
    EXPECT_EQ(dim(0)->calls, Calls{"display parts"});
    EXPECT_EQ(dim(1)->count("display parts"), 1U);
    // Where the hole was, and where it is.
    EXPECT_EQ(dim(0)->displayedParts[0], (std::vector<Rect>{kFocused.insetBy(-1), moved.insetBy(-1)}));
}

TEST_F(OverlayControllerDimTest, the_first_hole_is_drawn_even_if_it_has_no_size)
{
    toolkit.forgetCalls();
    controller->setState(focused(Rect()));
    EXPECT_EQ(dim(0)->count("display"), 1U);
    EXPECT_EQ(controller->dimViews()[0]->holeRect, Rect());
}

TEST_F(OverlayControllerDimTest, the_highlight_ends_above_a_dim_window_that_was_just_shown)
{
    edit([](Settings& s) { s.dimEnabled = false; });
    controller->setState(focused());
    EXPECT_EQ(toolkit.stack.size(), 1U);
    toolkit.forgetCalls();
    edit([](Settings& s) { s.dimEnabled = true; });
    EXPECT_EQ(toolkit.stack.size(), 3U);
    EXPECT_TRUE(isOnTop(highlight()));
    EXPECT_EQ(highlight()->count("orderFront"), 1U);
    toolkit.forgetCalls();
    controller->setState(focused(kFocused.translatedBy(1, 0)));
    EXPECT_EQ(highlight()->count("orderFront"), 0U);
    EXPECT_EQ(dim(0)->count("orderFront"), 0U);
}

TEST_F(OverlayControllerDimTest, a_dim_window_shown_during_a_move_sends_the_highlight_through_the_toolkit)
{
    controller->setState(focused());
    dim(0)->visible = false; // hidden behind our back
    controller->setState(focused(kFocused.translatedBy(7, 0)));
    EXPECT_EQ(library.callCount("SLSTransactionCommit"), 0U);
    EXPECT_TRUE(isOnTop(highlight()));
}

TEST_F(OverlayControllerDimTest, switching_it_off_hides_the_dim_windows)
{
    controller->setState(focused());
    edit([](Settings& s) { s.dimEnabled = false; });
    EXPECT_FALSE(dim(0)->visible);
    EXPECT_FALSE(dim(1)->visible);
    EXPECT_TRUE(highlight()->visible);
}

TEST_F(OverlayControllerDimTest, the_scopes_replace_each_other)
{
    controller->setState(focused());
    edit([](Settings& s) { s.dimScope = DimScope::selectedApps; });
    EXPECT_FALSE(dim(0)->visible);
    EXPECT_TRUE(appDim(0)->visible);
    EXPECT_TRUE(appDim(1)->visible);
    EXPECT_TRUE(controller->appDimTimerRunning());
    EXPECT_TRUE(isOnTop(highlight()));
    edit([](Settings& s) { s.dimScope = DimScope::allWindows; });
    EXPECT_TRUE(dim(0)->visible);
    EXPECT_FALSE(appDim(0)->visible);
    EXPECT_FALSE(controller->appDimTimerRunning());
    EXPECT_TRUE(isOnTop(highlight()));
    edit([](Settings& s) { s.dimScope = DimScope::selectedApps; });
    edit([](Settings& s) { s.dimEnabled = false; });
    EXPECT_FALSE(appDim(0)->visible);
    EXPECT_FALSE(controller->appDimTimerRunning());
}

TEST_F(OverlayControllerDimTest, windows_without_a_screen_are_left_unchanged)
{
    controller->setState(focused());
    screens.set({kPrimary}); // not announced yet
    toolkit.forgetCalls();
    controller->setState(focused(kFocused.translatedBy(4, 0)));
    EXPECT_TRUE(dim(1)->calls.empty());
    EXPECT_TRUE(dim(1)->visible);
    EXPECT_EQ(dim(0)->count("display parts"), 1U);

    screens.set({kPrimary, kSecondary, {{0, 800, 1000, 800}, DisplayID{3}}}); // more screens than windows
    controller->setState(focused(kFocused.translatedBy(8, 0)));
    EXPECT_EQ(toolkit.windows.size(), 5U);
}

} // namespace
} // namespace haloric
