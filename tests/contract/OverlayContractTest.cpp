// Overlay windows.
#include "contract/OverlayContract.h"

namespace haloric {
namespace {

TEST_P(OverlayContract, an_overlay_starts_ordered_out_with_a_number_and_takes_a_frame)
{
    const auto window = makeOverlay();
    EXPECT_FALSE(window->isVisible());
    EXPECT_GT(window->windowNumber(), 0);

    window->setFrame(kOverlay, false);
    EXPECT_EQ(window->frame(), kOverlay);
    window->setFrameOrigin({10, 20});
    EXPECT_EQ(window->frame(), (Rect{10, 20, 320, 240}));
}

TEST_P(OverlayContract, an_overlay_may_be_outside_every_screen)
{
    const auto window = shownOverlay();
    const Rect outside{-500, -400, 320, 240};
    window->setFrame(outside, false);

    EXPECT_EQ(window->frame(), outside);
}

TEST_P(OverlayContract, two_overlays_have_two_numbers)
{
    EXPECT_NE(makeOverlay()->windowNumber(), 0);
    const auto first = makeOverlay();
    const auto second = makeOverlay();
    EXPECT_NE(first->windowNumber(), second->windowNumber());
}

TEST_P(OverlayContract, ordering_in_and_out_shows_in_visibility)
{
    const auto window = shownOverlay();
    EXPECT_TRUE(window->isVisible());
    window->orderFront(); // again
    EXPECT_TRUE(window->isVisible());

    window->orderOut();
    EXPECT_FALSE(window->isVisible());
    window->orderOut();
    EXPECT_FALSE(window->isVisible());
}

TEST_P(OverlayContract, a_request_to_draw_is_answered_later_with_the_views_bounds)
{
    const auto window = shownOverlay();
    const int before = view.drawn;
    window->setNeedsDisplay();
    EXPECT_EQ(view.drawn, before);

    EXPECT_TRUE(host->waitUntil([&] { return view.drawn > before; }));
    EXPECT_EQ(view.lastBounds, (Rect{0, 0, 320, 240}));
}

TEST_P(OverlayContract, requests_for_parts_are_answered_too)
{
    const auto window = shownOverlay();
    const int before = view.drawn;
    const Rect parts[] = {{0, 0, 5, 5}, {5, 5, 5, 5}};
    window->setNeedsDisplay(parts);

    EXPECT_TRUE(host->waitUntil([&] { return view.drawn > before; }));
}

TEST_P(OverlayContract, a_window_that_is_shown_later_draws_its_contents_then)
{
    const auto window = makeOverlay();
    window->setFrame(kOverlay, false);
    window->setNeedsDisplay();
    host->turnFor(Seconds(0.05));
    window->orderFront();

    EXPECT_TRUE(host->waitUntil([&] { return view.drawn > 0; }));
}

TEST_P(OverlayContract, an_overlay_does_not_take_the_focus)
{
    const ContractWindow other = host->openWindow(kFrame);
    const auto window = shownOverlay();
    host->turnFor(Seconds(0.1));

    EXPECT_EQ(numberOfFocusedWindow(other.pid), other.number);
}

TEST_P(OverlayContract, an_overlay_is_listed_with_this_process_as_owner_or_not_at_all)
{
    const auto window = shownOverlay();
    for (const WindowInfo& info : onScreenList()) {
        const bool isOverlay = info.number == WindowInfoValue(static_cast<std::int64_t>(numberOf(*window)));
        EXPECT_TRUE(!isOverlay || info.ownerPID == WindowInfoValue(static_cast<std::int64_t>(host->ownProcess())));
    }
}

INSTANTIATE_TEST_SUITE_P(Hosts, OverlayContract, testing::ValuesIn(contractHosts()), contractHostName);

} // namespace
} // namespace haloric
