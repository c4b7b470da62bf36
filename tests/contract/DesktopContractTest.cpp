// Screens, the workspace and the public window list.
#include "contract/HostContract.h"
#include "platform/InputMonitors.h"
#include "platform/Screens.h"
#include "platform/Workspace.h"

#include <set>

namespace haloric {
namespace {

class DesktopContract : public HostContract {};

TEST_P(DesktopContract, there_are_screens_and_the_primary_one_is_at_the_origin)
{
    const auto screens = host->screens().all();
    ASSERT_FALSE(screens.empty());
    EXPECT_EQ(screens[0].frame.origin(), Point());
    std::set<DisplayID> ids;
    for (const Screen& screen : screens) {
        EXPECT_GT(screen.frame.width, 0);
        EXPECT_GT(screen.frame.height, 0);
        EXPECT_GT(screen.maximumFramesPerSecond, 0);
        EXPECT_GT(screen.backingScale, 0);
        EXPECT_TRUE(!screen.displayID || ids.insert(*screen.displayID).second) << "two screens of one number";
    }
}

TEST_P(DesktopContract, the_application_of_the_focused_window_is_frontmost)
{
    const ContractWindow first = host->openWindow(kFrame);
    const ContractWindow second = host->openWindow(kOtherFrame);
    ASSERT_NE(first.pid, second.pid);
    EXPECT_EQ(host->workspace().frontmostApplication()->pid, second.pid);
    EXPECT_FALSE(host->workspace().frontmostApplication()->hidden);

    host->focus(first);
    EXPECT_TRUE(host->waitUntil([&] { return host->workspace().frontmostApplication()->pid == first.pid; }));
}

TEST_P(DesktopContract, an_activation_is_reported_once_and_after_the_change)
{
    const ContractWindow first = host->openWindow(kFrame);
    host->openWindow(kOtherFrame);
    host->turnFor(Seconds(0.1));
    std::vector<ProcessID> frontmost;
    const Subscription observer = host->workspace().observe(WorkspaceNotification::didActivateApplication, [&] {
        frontmost.push_back(host->workspace().frontmostApplication()->pid);
    });

    host->focus(first);
    EXPECT_TRUE(host->waitUntil([&] { return !frontmost.empty(); }));
    host->turnFor(Seconds(0.2));
    EXPECT_EQ(frontmost, std::vector{first.pid});
}

TEST_P(DesktopContract, the_end_of_an_application_is_reported)
{
    const ContractWindow window = host->openWindow(kFrame);
    int ended = 0;
    const Subscription observer =
        host->workspace().observe(WorkspaceNotification::didTerminateApplication, [&] { ++ended; });

    host->close(window);
    EXPECT_TRUE(host->waitUntil([&] { return ended > 0; }));
}

TEST_P(DesktopContract, a_dropped_observer_of_the_workspace_is_not_called)
{
    const ContractWindow first = host->openWindow(kFrame);
    host->openWindow(kOtherFrame);
    host->turnFor(Seconds(0.1));
    int reported = 0;
    Subscription observer =
        host->workspace().observe(WorkspaceNotification::didActivateApplication, [&] { ++reported; });
    observer.reset();

    host->focus(first);
    EXPECT_TRUE(host->waitUntil([&] { return host->workspace().frontmostApplication()->pid == first.pid; }));
    host->turnFor(Seconds(0.1));
    EXPECT_EQ(reported, 0);
}

TEST_P(DesktopContract, the_window_list_goes_from_front_to_back)
{
    const ContractWindow first = host->openWindow(kFrame);
    const ContractWindow second = host->openWindow(kOtherFrame);
    EXPECT_TRUE(host->waitUntil([&] { return isListed(first.number) && isListed(second.number); }));
    EXPECT_LT(placeInList(second.number), placeInList(first.number));

    host->focus(first);
    EXPECT_TRUE(host->waitUntil([&] { return placeInList(first.number) < placeInList(second.number); }));
}

TEST_P(DesktopContract, an_ordinary_window_is_listed_with_layer_owner_number_and_bounds)
{
    const ContractWindow window = host->openWindow(kFrame);
    EXPECT_TRUE(host->waitUntil([&] { return isListed(window.number); }));
    const WindowInfo info = onScreenList()[placeInList(window.number)];

    EXPECT_EQ(info.layer, WindowInfoValue(std::int64_t{0}));
    EXPECT_EQ(info.ownerPID, WindowInfoValue(static_cast<std::int64_t>(window.pid)));
    EXPECT_EQ(info.bounds, WindowInfoValue(host->frameOf(window).value()));
    EXPECT_TRUE(info.alpha == WindowInfoValue() || info.alpha == WindowInfoValue(1.0));
}

TEST_P(DesktopContract, a_single_window_can_be_listed_by_its_number)
{
    const ContractWindow window = host->openWindow(kFrame);
    const auto list = host->windowInfoSource().copyWindowInfo(WindowListOptions::includingWindow, window.number);

    ASSERT_TRUE(list);
    ASSERT_EQ(list->size(), 1u);
    EXPECT_EQ(list->front().number, WindowInfoValue(static_cast<std::int64_t>(window.number)));
}

TEST_P(DesktopContract, a_closed_window_leaves_the_list)
{
    const ContractWindow window = host->openWindow(kFrame);
    EXPECT_TRUE(host->waitUntil([&] { return isListed(window.number); }));

    host->close(window);
    EXPECT_TRUE(host->waitUntil([&] { return !isListed(window.number); }));
    const auto list = host->windowInfoSource().copyWindowInfo(WindowListOptions::includingWindow, window.number);
    EXPECT_TRUE(!list || list->empty());
}

TEST_P(DesktopContract, a_minimised_window_leaves_the_list_on_screen)
{
    const ContractWindow window = host->openWindow(kFrame);
    EXPECT_TRUE(host->waitUntil([&] { return isListed(window.number); }));

    host->minimise(window);
    EXPECT_TRUE(host->waitUntil([&] { return !isListed(window.number); }));
}

TEST_P(DesktopContract, global_mouse_monitors_report_buttons_on_other_windows)
{
    host->openWindow(kFrame);
    const EventMask mask = maskOf(EventType::leftMouseDown) | maskOf(EventType::leftMouseUp);
    std::vector<EventType> reported;
    const Subscription monitor =
        host->input().addGlobalMouseMonitor(mask, [&](EventType type) { reported.push_back(type); });
    EXPECT_EQ(host->input().pressedMouseButtons(), 0u);

    host->pressButton();
    EXPECT_TRUE(host->waitUntil([&] { return reported.size() == 1; }));
    EXPECT_EQ(host->input().pressedMouseButtons(), 1u);
    host->releaseButton();
    EXPECT_TRUE(host->waitUntil([&] { return reported.size() == 2; }));
    EXPECT_EQ(reported, (std::vector{EventType::leftMouseDown, EventType::leftMouseUp}));
    EXPECT_EQ(host->input().pressedMouseButtons(), 0u);
}

INSTANTIATE_TEST_SUITE_P(Hosts, DesktopContract, testing::ValuesIn(contractHosts()), contractHostName);

} // namespace
} // namespace haloric
