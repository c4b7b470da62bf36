#include "hosts/sim/input/SimInputMonitors.h"
#include "unit/hosts/sim/SimDesktopFixture.h"

namespace haloric {
namespace {

using testing::ElementsAre;

TEST(SimPointer, a_drag_moves_the_window_in_steps_over_virtual_time_and_releases_the_button)
{
    SimDesktopFixture desk;
    SimWindow& window = desk.open(desk.launch("Editor"), "a");
    desk.settle();

    desk.desktop.pointer.drag(window, {300, 200, 400, 300}, Seconds(1), 100);
    EXPECT_EQ(desk.desktop.model.pressedButtons, 1u);
    EXPECT_EQ(desk.desktop.pointer.draggedWindow(), &window);
    desk.desktop.runLoop.runFor(Seconds(0.5));
    EXPECT_EQ(window.frame, (Rect{200, 150, 400, 300}));
    EXPECT_EQ(desk.serverEvents.size(), 50u);
    desk.desktop.runLoop.runFor(Seconds(0.5));
    EXPECT_EQ(window.frame, (Rect{300, 200, 400, 300}));
    EXPECT_EQ(desk.desktop.model.pressedButtons, 0u);
    EXPECT_EQ(desk.desktop.pointer.draggedWindow(), nullptr);
}

TEST(SimPointer, a_second_drag_ends_the_first_where_it_is)
{
    SimDesktopFixture desk;
    SimApp& editor = desk.launch("Editor");
    SimWindow& first = desk.open(editor, "a", {0, 0, 400, 300});
    SimWindow& second = desk.open(editor, "b", {0, 0, 400, 300});
    desk.desktop.pointer.drag(first, {100, 0, 400, 300}, Seconds(1), 100);
    desk.desktop.runLoop.runFor(Seconds(0.25));

    desk.desktop.pointer.drag(second, {100, 0, 400, 300}, Seconds(1), 100);
    desk.desktop.runLoop.runFor(Seconds(2));
    EXPECT_EQ(first.frame.x, 25);
    EXPECT_EQ(second.frame.x, 100);
    EXPECT_EQ(desk.desktop.model.pressedButtons, 0u);
}

TEST(SimPointer, a_window_that_closes_during_its_drag_ends_nothing_but_itself)
{
    SimDesktopFixture desk;
    SimWindow& window = desk.open(desk.launch("Editor"), "a");
    desk.desktop.pointer.drag(window, {300, 200, 400, 300}, Seconds(0.5), 100);
    desk.desktop.windows.close(window);

    EXPECT_EQ(desk.desktop.pointer.draggedWindow(), nullptr);
    desk.desktop.runLoop.runFor(Seconds(1));
    EXPECT_EQ(desk.desktop.model.pressedButtons, 0u);
}

TEST(SimPointer, a_dragged_window_comes_along_to_another_space)
{
    SimDesktopFixture desk;
    SimApp& editor = desk.launch("Editor");
    SimWindow& window = desk.open(editor, "a");
    desk.desktop.pointer.drag(window, {300, 200, 400, 300}, Seconds(0.5), 100);
    desk.desktop.spaces.switchTo(2, desk.desktop.pointer.draggedWindow());

    EXPECT_TRUE(desk.desktop.model.isOnScreen(window));
    EXPECT_EQ(desk.focusedIn(editor), "a");
}

TEST(SimInputMonitors, buttons_reach_the_monitor_of_whoever_is_frontmost)
{
    SimDesktopFixture desk;
    SimInputMonitors input(desk.desktop);
    desk.launch("Editor");
    std::vector<EventType> global;
    std::vector<EventType> local;
    const EventMask mask = maskOf(EventType::rightMouseDown) | maskOf(EventType::rightMouseUp);
    const auto first = input.addGlobalMouseMonitor(mask, [&](EventType type) { global.push_back(type); });
    const auto second = input.addLocalMouseMonitor(mask, [&](EventType type) { local.push_back(type); });

    desk.desktop.pointer.press(SimButton::left); // not in the mask
    desk.desktop.pointer.press(SimButton::right);
    desk.desktop.pointer.press(SimButton::right); // is pressed already
    EXPECT_EQ(input.pressedMouseButtons(), 3u);
    desk.run();
    EXPECT_THAT(global, ElementsAre(EventType::rightMouseDown));
    desk.desktop.applications.activate(*desk.desktop.model.app(SimModel::kOwnProcess));
    desk.desktop.pointer.releaseAll();
    desk.run();
    EXPECT_THAT(local, ElementsAre(EventType::rightMouseUp));
    EXPECT_EQ(global.size(), 1u);
}

TEST(SimInputMonitors, a_tap_hears_what_its_mask_names_while_it_is_enabled)
{
    SimDesktopFixture desk;
    SimInputMonitors input(desk.desktop);
    std::vector<EventType> heard;
    EventTapDescription description;
    description.mask = maskOf(EventType::keyDown) | maskOf(EventType::leftMouseUp);
    const auto tap = input.createEventTap(description, [&](const TapEvent& event) { heard.push_back(event.type); });
    ASSERT_TRUE(tap);
    tap->addToMainRunLoop();
    desk.desktop.keyboard.press(21, 0);
    desk.run();
    EXPECT_TRUE(heard.empty()) << "not enabled yet";

    tap->enable();
    desk.desktop.keyboard.press(21, 0);
    desk.desktop.pointer.press(SimButton::left);
    desk.desktop.pointer.release(SimButton::left);
    desk.run();
    EXPECT_THAT(heard, ElementsAre(EventType::keyDown, EventType::leftMouseUp));

    desk.desktop.keyboard.disableTaps(EventType::tapDisabledByTimeout);
    desk.desktop.keyboard.press(21, 0);
    desk.run();
    EXPECT_THAT(heard.back(), EventType::tapDisabledByTimeout) << "told, and then out of service";
    tap->enable();
    desk.desktop.keyboard.press(21, 0);
    desk.run();
    EXPECT_THAT(heard.back(), EventType::keyDown);
}

} // namespace
} // namespace haloric
