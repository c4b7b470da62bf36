#include "x11/adapters/InputAdapters.h"

#include <xcb/xtest.h>

#define XK_LATIN1
#define XK_MISCELLANY
#include <X11/keysymdef.h>

namespace haloric {
namespace {

struct X11KeysTest : InputAdapters {
    // The event of a chord's last key.
    std::optional<TapEvent> lastEvent(const std::vector<std::uint32_t>& keySymbols)
    {
        tapped.clear();
        session.input().chord(keySymbols);
        adapters.settle();
        return tapped.empty() ? std::nullopt : std::optional(tapped.back());
    }
    std::pair<std::int64_t, std::uint64_t> numberAndFlags(const std::vector<std::uint32_t>& keySymbols)
    {
        const auto event = lastEvent(keySymbols).value_or(TapEvent{EventType::otherMouseUp, -1, 0});
        return {event.keyCode, event.flags};
    }
};

using Key = std::pair<std::int64_t, std::uint64_t>;

TEST_F(X11KeysTest, keys_are_reported_with_their_numbers_and_flags)
{
    EXPECT_EQ(numberAndFlags({'4'}), Key(21, 0));
    EXPECT_EQ(numberAndFlags({XK_Shift_L, '4'}), Key(21, 0x020000));
    EXPECT_EQ(numberAndFlags({XK_Shift_R, '5'}), Key(23, 0x020000));
    EXPECT_EQ(numberAndFlags({XK_Control_L, XK_Alt_L, 'f'}), Key(3, 0x0C0000));
    EXPECT_EQ(numberAndFlags({XK_Escape}), Key(53, 0));
}

TEST_F(X11KeysTest, the_super_key_is_not_command)
{
    // Many window managers move the window to a workspace by these.
    EXPECT_EQ(numberAndFlags({XK_Super_L, XK_Shift_L, '4'}), Key(21, 0x020000));
    EXPECT_EQ(numberAndFlags({XK_Super_R, XK_Shift_R, '5'}), Key(23, 0x020000));
    EXPECT_EQ(numberAndFlags({XK_Super_L, '4'}), Key(21, 0));
}

TEST_F(X11KeysTest, modifiers_on_their_own_are_not_reported)
{
    EXPECT_FALSE(lastEvent({XK_Super_L, XK_Shift_L}).has_value());
}

TEST_F(X11KeysTest, lock_keys_change_no_other_flags)
{
    session.input().chord({XK_Num_Lock});
    session.input().chord({XK_Scroll_Lock});
    EXPECT_EQ(numberAndFlags({XK_Shift_L, '4'}), Key(21, 0x020000));
    session.input().chord({XK_Caps_Lock});
    EXPECT_EQ(numberAndFlags({XK_Shift_L, '4'}), Key(21, 0x030000));
    session.input().chord({XK_Caps_Lock});
    EXPECT_EQ(numberAndFlags({XK_Shift_L, '4'}), Key(21, 0x020000));
}

TEST_F(X11KeysTest, the_print_key_is_the_screenshot_key_alone_or_with_any_modifier_but_super)
{
    EXPECT_EQ(numberAndFlags({XK_Print}), Key(23, 0x120000));
    EXPECT_EQ(numberAndFlags({XK_Shift_L, XK_Print}), Key(23, 0x120000));
    EXPECT_EQ(numberAndFlags({XK_Alt_L, XK_Print}), Key(23, 0x120000));
    EXPECT_EQ(numberAndFlags({XK_Control_L, XK_Print}), Key(23, 0x160000));
    EXPECT_FALSE(lastEvent({XK_Super_L, XK_Print}).has_value());
}

TEST_F(X11KeysTest, a_new_keyboard_layout_is_followed)
{
    // The key of the 5 gets the symbols that the key of the 4 has on French keyboards.
    xcb_connection_t* other = session.observer().raw();
    constexpr std::uint8_t kKeyCodeOf5 = 14;
    const std::uint32_t symbols[] = {XK_apostrophe, XK_4};
    xcb_change_keyboard_mapping(other, 1, kKeyCodeOf5, 2, symbols);
    session.observer().synchronize();
    adapters.settle();
    xcb_test_fake_input(other, XCB_KEY_PRESS, kKeyCodeOf5, XCB_CURRENT_TIME, session.observer().root(), 0, 0, 0);
    xcb_test_fake_input(other, XCB_KEY_RELEASE, kKeyCodeOf5, XCB_CURRENT_TIME, session.observer().root(), 0, 0, 0);
    session.observer().synchronize();
    adapters.settle();
    ASSERT_FALSE(tapped.empty());
    EXPECT_EQ(tapped.back().keyCode, 21);
}

TEST_F(X11KeysTest, keys_held_from_before_count)
{
    session.input().pressKey(XK_Control_L);
    X11RawInput late(*adapters.connection, keyboard);
    std::optional<TapEvent> last;
    const auto subscription = late.onKeyDown([&](const TapEvent& event) { last = event; });
    session.input().chord({'4'});
    adapters.settle();
    session.input().releaseKey(XK_Control_L);
    ASSERT_TRUE(last);
    EXPECT_EQ(last->flags, 0x040000U);
}

TEST_F(X11KeysTest, a_tap_receives_the_events_of_its_mask_while_it_is_enabled)
{
    session.input().clickAt(960, 540);
    adapters.settle();
    ASSERT_EQ(tapped.size(), 1U);
    EXPECT_EQ(tapped.front().type, EventType::leftMouseUp);

    int seenByOther = 0;
    const auto other = input.createEventTap({.mask = kEverything}, [&](const TapEvent&) { ++seenByOther; });
    other->addToMainRunLoop();
    session.input().chord({'4'});
    adapters.settle();
    EXPECT_EQ(seenByOther, 0); // not enabled yet
    tap.reset();
    tapped.clear();
    session.input().chord({'4'});
    adapters.settle();
    EXPECT_THAT(tapped, testing::IsEmpty());
}

} // namespace
} // namespace haloric
