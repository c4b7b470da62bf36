// Hotkeys on a real server, pressed as by the keyboard.
#include "hosts/x11/input/X11Hotkeys.h"

#include "hosts/linux/loop/LinuxRunLoop.h"
#include "testing/x11/TestInput.h"
#include "testing/x11/X11Server.h"

#include <xcb/xtest.h>

#define XK_LATIN1
#define XK_MISCELLANY
#define XK_CYRILLIC
#include <X11/keysymdef.h>

namespace haloric {
namespace {

constexpr Hotkey kHotkey{.keyCode = 3, .modifiers = 6400, .signature = 0x484C5243, .number = 1};
constexpr std::uint8_t kKeyCodeOfF = 41;
const std::vector<std::uint32_t> kModifiers{XK_Control_L, XK_Alt_L, XK_Super_L};

struct X11HotkeysTest : testing::Test {
    // A held key repeats soon.
    X11Server server{{.width = 200, .height = 100, .arguments = {"-ardelay", "20", "-arinterval", "10"}}};
    TestConnection user{server.display()};
    TestInput input{user};
    LinuxRunLoop loop;
    std::unique_ptr<X11Connection> connection = X11Connection::open(server.display().c_str(), loop);
    X11Keyboard keyboard{*connection};
    X11Hotkeys hotkeys{*connection, keyboard, loop};
    int presses = 0;
    int pressesSeenByFocus = 0;
    EventHandlerRef handler = hotkeys.installEventHandler(X11Hotkeys::kPressed, [this] {
        ++presses;
        return Hotkeys::kNoError;
    });

    X11HotkeysTest()
    {
        // Another client's window has the focus and receives presses that are not consumed.
        const xcb_window_t window = xcb_generate_id(user.raw());
        const std::uint32_t mask = XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_FOCUS_CHANGE;
        xcb_create_window(user.raw(), XCB_COPY_FROM_PARENT, window, user.root(), 0, 0, 50, 50, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &mask);
        xcb_map_window(user.raw(), window);
        xcb_set_input_focus(user.raw(), XCB_INPUT_FOCUS_POINTER_ROOT, window, XCB_CURRENT_TIME);
        user.onEvent = [this](const xcb_generic_event_t& event) {
            const auto& press = eventAs<xcb_key_press_event_t>(event);
            if (event.response_type == XCB_KEY_PRESS && press.detail == kKeyCodeOfF)
                ++pressesSeenByFocus;
        };
        user.synchronize();
    }

    void settle()
    {
        for (int pass = 0; pass < 2; ++pass) { // the second handles the replies to the first
            const XcbReply<xcb_get_input_focus_reply_t> reply(
                xcb_get_input_focus_reply(connection->raw(), xcb_get_input_focus(connection->raw()), nullptr));
            loop.turn(Seconds(0));
            loop.turn(Seconds(0));
        }
    }

    // The server's times are in milliseconds; a person does not release and press a key within one.
    void waitAsAPersonDoes()
    {
        constexpr std::uint32_t kMilliseconds = 3; // after which the server moves the pointer
        xcb_test_fake_input(user.raw(), XCB_MOTION_NOTIFY, 0, kMilliseconds, user.root(), 150, 50, 0);
        user.synchronize();
    }

    // The number of calls for one press of the combination.
    int pressesOf(std::uint32_t key = 'f')
    {
        presses = 0;
        waitAsAPersonDoes();
        auto chord = kModifiers;
        chord.push_back(key);
        input.chord(chord);
        settle();
        user.processEvents();
        return presses;
    }

    void setLayout(const std::string& layout) const
    {
        ChildProcess process({{"setxkbmap", layout}, server.environment(), {}, -1});
        ASSERT_EQ(process.waitForExit(), 0) << process.standardError();
    }
};

TEST_F(X11HotkeysTest, a_press_is_reported_once_and_consumed)
{
    ASSERT_NE(hotkeys.registerHotkey(kHotkey, 0), HotkeyRef::none);
    EXPECT_EQ(pressesOf(), 1);
    EXPECT_EQ(pressesOf(), 1);
    EXPECT_EQ(pressesSeenByFocus, 0);
}

TEST_F(X11HotkeysTest, while_it_is_not_registered_the_focused_window_gets_the_press)
{
    EXPECT_EQ(pressesOf(), 0);
    EXPECT_EQ(pressesSeenByFocus, 1);
    const HotkeyRef hotkey = hotkeys.registerHotkey(kHotkey, 0);
    hotkeys.unregisterHotkey(hotkey);
    EXPECT_EQ(pressesOf(), 0);
    EXPECT_EQ(pressesSeenByFocus, 2);
    ASSERT_NE(hotkeys.registerHotkey(kHotkey, 0), HotkeyRef::none);
    EXPECT_EQ(pressesOf(), 1);
}

TEST_F(X11HotkeysTest, other_combinations_are_left_alone)
{
    ASSERT_NE(hotkeys.registerHotkey(kHotkey, 0), HotkeyRef::none);
    input.chord({XK_Control_L, XK_Alt_L, 'f'});
    input.chord({XK_Control_L, XK_Alt_L, XK_Super_L, XK_Shift_L, 'f'});
    settle();
    user.processEvents();
    EXPECT_EQ(presses, 0);
    EXPECT_EQ(pressesSeenByFocus, 2);
    EXPECT_EQ(pressesOf('g'), 0);
}

TEST_F(X11HotkeysTest, lock_keys_do_not_matter)
{
    ASSERT_NE(hotkeys.registerHotkey(kHotkey, 0), HotkeyRef::none);
    input.chord({XK_Num_Lock});
    EXPECT_EQ(pressesOf(), 1);
    input.chord({XK_Caps_Lock});
    EXPECT_EQ(pressesOf(), 1);
    input.chord({XK_Num_Lock});
    EXPECT_EQ(pressesOf(), 1);
    input.chord({XK_Scroll_Lock});
    EXPECT_EQ(pressesOf(), 1);
}

TEST_F(X11HotkeysTest, a_held_key_counts_once)
{
    // The server really repeats: without the hotkey, the focused window gets the repeats.
    for (const std::uint32_t key : kModifiers)
        input.pressKey(key);
    input.pressKey('f');
    ASSERT_TRUE(user.waitUntil([&] { return pressesSeenByFocus >= 4; }));
    input.releaseKey('f');
    ASSERT_NE(hotkeys.registerHotkey(kHotkey, 0), HotkeyRef::none);

    int repeats = 0;
    const auto subscription = connection->onEvent(XCB_KEY_PRESS, [&](const xcb_generic_event_t&) { ++repeats; });
    input.pressKey('f');
    const Deadline deadline(kTimeout);
    while (repeats < 4 && !deadline.isOver())
        loop.turn(Seconds(0.01));
    EXPECT_GE(repeats, 4);
    EXPECT_EQ(presses, 1);
    input.releaseKey('f');
    settle();
    waitAsAPersonDoes();
    input.pressKey('f');
    input.releaseKey('f');
    settle();
    EXPECT_EQ(presses, 2);
}

TEST_F(X11HotkeysTest, a_combination_that_another_program_has_changes_nothing)
{
    TestConnection stranger(server.display());
    const auto grabbed = xcb_grab_key_checked(stranger.raw(), 0, stranger.root(), 0x4C | XCB_MOD_MASK_LOCK, kKeyCodeOfF,
                                              XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    ASSERT_EQ(xcb_request_check(stranger.raw(), grabbed), nullptr);
    EXPECT_EQ(hotkeys.registerHotkey(kHotkey, 0), HotkeyRef::none);
    EXPECT_EQ(pressesOf(), 0);
    EXPECT_EQ(pressesSeenByFocus, 1); // not even the part that was free is kept
    hotkeys.unregisterHotkey(HotkeyRef::none);

    xcb_ungrab_key(stranger.raw(), kKeyCodeOfF, stranger.root(), XCB_MOD_MASK_ANY);
    stranger.synchronize();
    EXPECT_NE(hotkeys.registerHotkey(kHotkey, 0), HotkeyRef::none);
    EXPECT_EQ(pressesOf(), 1);
}

TEST_F(X11HotkeysTest, the_same_combination_a_second_time_is_taken)
{
    const HotkeyRef first = hotkeys.registerHotkey(kHotkey, 0);
    EXPECT_EQ(hotkeys.registerHotkey(kHotkey, 0), HotkeyRef::none);
    EXPECT_EQ(pressesOf(), 1);
    hotkeys.unregisterHotkey(first);
    EXPECT_EQ(pressesOf(), 0);
}

TEST_F(X11HotkeysTest, a_new_layout_is_followed)
{
    ASSERT_NE(hotkeys.registerHotkey(kHotkey, 0), HotkeyRef::none);
    setLayout("dvorak");
    settle();
    EXPECT_EQ(pressesOf('f'), 1); // where the new layout has it
    EXPECT_EQ(pressesSeenByFocus, 0);
    EXPECT_EQ(pressesOf('u'), 0); // where it was
    EXPECT_EQ(pressesSeenByFocus, 1);
    setLayout("us");
    settle();
    EXPECT_EQ(pressesOf('f'), 1);
}

TEST_F(X11HotkeysTest, a_layout_without_latin_letters_has_it_at_the_same_place)
{
    setLayout("ru");
    settle();
    ASSERT_NE(hotkeys.registerHotkey(kHotkey, 0), HotkeyRef::none);
    EXPECT_EQ(pressesOf(XK_Cyrillic_a), 1);
}

TEST_F(X11HotkeysTest, it_works_once_the_keyboard_has_a_modifier_that_it_lacked)
{
    xcb_connection_t* raw = user.raw();
    const TestConnection::Reply<xcb_get_modifier_mapping_reply_t> usual(
        xcb_get_modifier_mapping_reply(raw, xcb_get_modifier_mapping(raw), nullptr));
    ASSERT_TRUE(usual);
    const std::size_t each = usual->keycodes_per_modifier;
    const xcb_keycode_t* keys = xcb_get_modifier_mapping_keycodes(usual.get());
    std::vector<xcb_keycode_t> withoutSuper(keys, keys + each * 8);
    std::fill_n(withoutSuper.begin() + static_cast<std::ptrdiff_t>(6 * each), each, xcb_keycode_t{0});
    const auto set = [&](const xcb_keycode_t* map) {
        const TestConnection::Reply<xcb_set_modifier_mapping_reply_t> reply(xcb_set_modifier_mapping_reply(
            raw, xcb_set_modifier_mapping(raw, usual->keycodes_per_modifier, map), nullptr));
        ASSERT_TRUE(reply);
        ASSERT_EQ(reply->status, XCB_MAPPING_STATUS_SUCCESS);
        settle();
    };
    set(withoutSuper.data());
    ASSERT_NE(hotkeys.registerHotkey(kHotkey, 0), HotkeyRef::none);
    EXPECT_EQ(pressesOf(), 0);
    set(keys);
    EXPECT_EQ(pressesOf(), 1);
}

TEST_F(X11HotkeysTest, only_handlers_for_that_event_are_called_and_the_newest_first)
{
    ASSERT_NE(hotkeys.registerHotkey(kHotkey, 0), HotkeyRef::none);
    constexpr std::int32_t kNotHandled = -9874;
    int offered = 0;
    const auto later = hotkeys.installEventHandler(X11Hotkeys::kPressed, [&] {
        ++offered;
        return kNotHandled;
    });
    hotkeys.installEventHandler({.eventClass = X11Hotkeys::kPressed.eventClass, .kind = 6}, [&] {
        ADD_FAILURE() << "another kind of event";
        return Hotkeys::kNoError;
    });
    EXPECT_EQ(pressesOf(), 1);
    EXPECT_EQ(offered, 1);
    hotkeys.removeEventHandler(later);
    hotkeys.removeEventHandler(handler);
    EXPECT_EQ(pressesOf(), 0);
    EXPECT_EQ(offered, 1);
    EXPECT_EQ(pressesSeenByFocus, 0);
}

TEST_F(X11HotkeysTest, a_handler_that_is_removed_during_the_delivery_is_not_called)
{
    ASSERT_NE(hotkeys.registerHotkey(kHotkey, 0), HotkeyRef::none);
    constexpr std::int32_t kNotHandled = -9874;
    hotkeys.installEventHandler(X11Hotkeys::kPressed, [&] {
        hotkeys.removeEventHandler(handler);
        return kNotHandled;
    });
    EXPECT_EQ(pressesOf(), 0);
}

TEST_F(X11HotkeysTest, a_handler_may_replace_itself)
{
    ASSERT_NE(hotkeys.registerHotkey(kHotkey, 0), HotkeyRef::none);
    constexpr std::int32_t kNotHandled = -9874;
    const std::string text(100, 'x'); // in the memory of the handler, which the removal must not free
    int replacements = 0;
    EventHandlerRef replaced{};
    replaced = hotkeys.installEventHandler(X11Hotkeys::kPressed, [&, text] {
        hotkeys.removeEventHandler(replaced);
        for (int other = 0; other < 20; ++other) // they need more memory than the list has
            hotkeys.installEventHandler(X11Hotkeys::kPressed, [&replacements] {
                ++replacements;
                return kNotHandled;
            });
        EXPECT_EQ(text, std::string(100, 'x'));
        return kNotHandled;
    });
    EXPECT_EQ(pressesOf(), 1);
    EXPECT_EQ(replacements, 0) << "installed during the delivery";
    EXPECT_EQ(pressesOf(), 1);
    EXPECT_EQ(replacements, 20);
}

TEST_F(X11HotkeysTest, a_press_within_the_millisecond_of_another_keys_release_counts)
{
    constexpr Hotkey kOtherHotkey{.keyCode = 40, .modifiers = 6400, .signature = 0x484C5243, .number = 2};
    constexpr std::uint8_t kKeyCodeOfK = 45;
    ASSERT_NE(hotkeys.registerHotkey(kHotkey, 0), HotkeyRef::none);
    ASSERT_NE(hotkeys.registerHotkey(kOtherHotkey, 0), HotkeyRef::none);
    xcb_timestamp_t released = 0;
    xcb_timestamp_t pressed = 1;
    const auto releases = connection->onEvent<xcb_key_release_event_t>(
        XCB_KEY_RELEASE, [&](const auto& event) { released = event.detail == kKeyCodeOfK ? event.time : released; });
    const auto pressEvents = connection->onEvent<xcb_key_press_event_t>(
        XCB_KEY_PRESS, [&](const auto& event) { pressed = event.detail == kKeyCodeOfF ? event.time : pressed; });
    const auto fake = [&](std::uint8_t type, std::uint8_t key) {
        xcb_test_fake_input(user.raw(), type, key, XCB_CURRENT_TIME, user.root(), 0, 0, 0);
    };
    for (const std::uint32_t key : kModifiers)
        input.pressKey(key);
    const Deadline deadline(kTimeout);
    while (released != pressed && !deadline.isOver()) { // most of the time, the server is fast enough
        waitAsAPersonDoes();
        fake(XCB_KEY_PRESS, kKeyCodeOfK);
        user.synchronize();
        settle();
        presses = 0;
        fake(XCB_KEY_RELEASE, kKeyCodeOfK);
        fake(XCB_KEY_PRESS, kKeyCodeOfF);
        fake(XCB_KEY_RELEASE, kKeyCodeOfF);
        user.synchronize();
        settle();
        EXPECT_EQ(presses, 1);
    }
    EXPECT_EQ(released, pressed);
}

} // namespace
} // namespace haloric
