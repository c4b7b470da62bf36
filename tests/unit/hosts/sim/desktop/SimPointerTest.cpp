#include "unit/hosts/sim/SimDesktopFixture.h"

namespace haloric {
namespace {

TEST(SimPointer, a_drag_moves_the_window_in_steps_over_virtual_time_and_releases_the_button)
{
    SimDesktopFixture fixture;
    SimWindow& window = fixture.open(fixture.launch("Editor"), "a");
    fixture.settle();

    fixture.desktop.pointer.drag(window, {300, 200, 400, 300}, Seconds(1), 100);
    EXPECT_EQ(fixture.desktop.model.pressedButtons, 1u);
    EXPECT_EQ(fixture.desktop.pointer.draggedWindow(), &window);
    fixture.desktop.runLoop.runFor(Seconds(0.5));
    EXPECT_EQ(window.frame, (Rect{200, 150, 400, 300}));
    EXPECT_EQ(fixture.serverEvents.size(), 50u);
    fixture.desktop.runLoop.runFor(Seconds(0.5));
    EXPECT_EQ(window.frame, (Rect{300, 200, 400, 300}));
    EXPECT_EQ(fixture.desktop.model.pressedButtons, 0u);
    EXPECT_EQ(fixture.desktop.pointer.draggedWindow(), nullptr);
}

TEST(SimPointer, a_second_drag_ends_the_first_where_it_is)
{
    SimDesktopFixture fixture;
    SimApp& editor = fixture.launch("Editor");
    SimWindow& first = fixture.open(editor, "a", {0, 0, 400, 300});
    SimWindow& second = fixture.open(editor, "b", {0, 0, 400, 300});
    fixture.desktop.pointer.drag(first, {100, 0, 400, 300}, Seconds(1), 100);
    fixture.desktop.runLoop.runFor(Seconds(0.25));

    fixture.desktop.pointer.drag(second, {100, 0, 400, 300}, Seconds(1), 100);
    fixture.desktop.runLoop.runFor(Seconds(2));
    EXPECT_EQ(first.frame.x, 25);
    EXPECT_EQ(second.frame.x, 100);
    EXPECT_EQ(fixture.desktop.model.pressedButtons, 0u);
}

TEST(SimPointer, a_window_that_closes_during_its_drag_ends_nothing_but_itself)
{
    SimDesktopFixture fixture;
    SimWindow& window = fixture.open(fixture.launch("Editor"), "a");
    fixture.desktop.pointer.drag(window, {300, 200, 400, 300}, Seconds(0.5), 100);
    fixture.desktop.windows.close(window);

    EXPECT_EQ(fixture.desktop.pointer.draggedWindow(), nullptr);
    fixture.desktop.runLoop.runFor(Seconds(1));
    EXPECT_EQ(fixture.desktop.model.pressedButtons, 0u);
}

TEST(SimPointer, a_dragged_window_moves_along_to_another_space)
{
    SimDesktopFixture fixture;
    SimApp& editor = fixture.launch("Editor");
    SimWindow& window = fixture.open(editor, "a");
    fixture.desktop.pointer.drag(window, {300, 200, 400, 300}, Seconds(0.5), 100);
    fixture.desktop.spaces.switchTo(2, fixture.desktop.pointer.draggedWindow());

    EXPECT_TRUE(fixture.desktop.model.isOnScreen(window));
    EXPECT_EQ(fixture.focusedIn(editor), "a");
}

} // namespace
} // namespace haloric
