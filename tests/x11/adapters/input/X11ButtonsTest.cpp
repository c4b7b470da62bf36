#include "x11/adapters/InputAdapters.h"

#include <xcb/xinput.h>

namespace haloric {
namespace {

using X11ButtonsTest = InputAdapters;

TEST_F(X11ButtonsTest, buttons_pressed_anywhere_are_reported)
{
    for (const std::uint8_t button : std::initializer_list<std::uint8_t>{1, 2, 3, 9}) {
        session.input().press(button);
        session.input().release(button);
    }
    adapters.settle();
    EXPECT_THAT(global,
                testing::ElementsAre(EventType::leftMouseDown, EventType::leftMouseUp, EventType::otherMouseDown,
                                     EventType::otherMouseUp, EventType::rightMouseDown, EventType::rightMouseUp,
                                     EventType::otherMouseDown, EventType::otherMouseUp));
    EXPECT_THAT(local, testing::IsEmpty());
}

TEST_F(X11ButtonsTest, the_wheel_is_no_button)
{
    for (const std::uint8_t button : std::initializer_list<std::uint8_t>{4, 5, 6, 7}) {
        session.input().press(button);
        adapters.settle();
        EXPECT_EQ(input.pressedMouseButtons(), 0U);
        session.input().release(button);
    }
    adapters.settle();
    EXPECT_THAT(global, testing::IsEmpty());
}

TEST_F(X11ButtonsTest, a_monitor_receives_the_events_of_its_mask)
{
    std::vector<EventType> ups;
    const auto monitor =
        input.addGlobalMouseMonitor(maskOf(EventType::leftMouseUp), [&](EventType type) { ups.push_back(type); });
    session.input().clickAt(960, 540);
    adapters.settle();
    EXPECT_THAT(ups, testing::ElementsAre(EventType::leftMouseUp));
}

TEST_F(X11ButtonsTest, a_drag_by_the_window_manager_is_reported_to_its_end)
{
    const auto client = session.makeClient();
    ASSERT_TRUE(client->showFocused());
    const ScreenRect frame = client->visibleFrame();
    session.input().moveTo(frame.x + frame.width / 2, frame.y + 10);
    session.input().press();
    int x = frame.x + frame.width / 2;
    ASSERT_TRUE(session.observer().waitUntil([&] {
        session.input().moveTo(x += 5, frame.y + 10); // the window manager takes the pointer when it gets to it
        return client->visibleFrame().x > frame.x + 50;
    }));
    adapters.settle();
    EXPECT_EQ(input.pressedMouseButtons(), 1U);
    EXPECT_THAT(global, testing::ElementsAre(EventType::leftMouseDown));
    session.input().release();
    EXPECT_TRUE(adapters.waitUntil([&] { return global.size() == 2; }));
    EXPECT_EQ(global.back(), EventType::leftMouseUp);
    EXPECT_EQ(input.pressedMouseButtons(), 0U);
}

TEST_F(X11ButtonsTest, the_pressed_buttons_are_bits)
{
    session.input().press(1);
    session.input().press(3);
    session.input().press(2);
    adapters.settle();
    EXPECT_EQ(input.pressedMouseButtons(), 0b111U);
    session.input().release(1);
    adapters.settle();
    EXPECT_EQ(input.pressedMouseButtons(), 0b110U);
    session.input().release(2);
    session.input().release(3);
    adapters.settle();
    EXPECT_EQ(input.pressedMouseButtons(), 0U);
}

TEST_F(X11ButtonsTest, a_button_held_from_before_is_known)
{
    session.input().press(3);
    const X11RawInput late(*adapters.connection, keyboard);
    EXPECT_EQ(late.pressedButtons(), 0b10U);
    session.input().release(3);
}

TEST_F(X11ButtonsTest, no_button_counts_as_held_if_releases_are_not_reported)
{
    // The server keeps the version that a client requested first; raw events during grabs need a later one.
    const AdaptersDisplay old(session.display());
    const XcbReply<xcb_input_xi_query_version_reply_t> version(xcb_input_xi_query_version_reply(
        old.connection->raw(), xcb_input_xi_query_version(old.connection->raw(), 2, 0), nullptr));
    ASSERT_TRUE(version);
    session.input().press(3);
    X11Keyboard oldKeyboard(*old.connection);
    const X11RawInput late(*old.connection, oldKeyboard);
    EXPECT_FALSE(late.isAvailable());
    EXPECT_EQ(late.pressedButtons(), 0U);
    session.input().release(3);
}

TEST_F(X11ButtonsTest, swapped_buttons_are_reported_by_their_meaning)
{
    std::vector<std::uint8_t> map(16);
    const TestConnection::Reply<xcb_get_pointer_mapping_reply_t> old(xcb_get_pointer_mapping_reply(
        session.observer().raw(), xcb_get_pointer_mapping(session.observer().raw()), nullptr));
    map.assign(xcb_get_pointer_mapping_map(old.get()),
               xcb_get_pointer_mapping_map(old.get()) + xcb_get_pointer_mapping_map_length(old.get()));
    std::swap(map[0], map[2]);
    const TestConnection::Reply<xcb_set_pointer_mapping_reply_t> set(xcb_set_pointer_mapping_reply(
        session.observer().raw(),
        xcb_set_pointer_mapping(session.observer().raw(), static_cast<std::uint8_t>(map.size()), map.data()), nullptr));
    adapters.settle();
    session.input().press(1);
    session.input().release(1);
    adapters.settle();
    EXPECT_THAT(global, testing::ElementsAre(EventType::rightMouseDown, EventType::rightMouseUp));
}

TEST_F(X11ButtonsTest, a_press_on_an_own_window_is_local_and_so_is_its_release)
{
    const auto client = session.makeClient();
    ASSERT_TRUE(client->showFocused());
    ownWindows.add(client->window());
    const ScreenRect content = client->content();
    session.input().moveTo(content.x + 20, content.y + 20);
    session.input().press();
    adapters.settle();
    session.input().moveTo(5, 5);
    session.input().release();
    session.input().clickAt(5, 5);
    EXPECT_TRUE(adapters.waitUntil([&] { return global.size() == 2; }));
    EXPECT_THAT(local, testing::ElementsAre(EventType::leftMouseDown, EventType::leftMouseUp));
    EXPECT_THAT(global, testing::ElementsAre(EventType::leftMouseDown, EventType::leftMouseUp));
    ownWindows.remove(client->window());
    session.input().clickAt(content.x + 20, content.y + 20);
    EXPECT_TRUE(adapters.waitUntil([&] { return global.size() == 4; }));
    EXPECT_EQ(local.size(), 2U);
}

} // namespace
} // namespace haloric
