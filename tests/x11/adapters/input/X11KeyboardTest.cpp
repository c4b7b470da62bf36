// The keyboard's mapping, changed on a real server.
#include "hosts/x11/input/X11Keyboard.h"

#include "hosts/linux/loop/LinuxRunLoop.h"
#include "testing/x11/TestConnection.h"
#include "testing/x11/X11Server.h"

#define XK_LATIN1
#include <X11/keysymdef.h>

namespace haloric {
namespace {

constexpr std::uint8_t kKeyCodeOf5 = 14;
constexpr std::int64_t kNumberOf4 = 21;
constexpr std::int64_t kNumberOf5 = 23;

struct X11KeyboardTest : testing::Test {
    X11Server server{{.width = 200, .height = 100}};
    TestConnection user{server.display()};
    LinuxRunLoop loop;
    std::unique_ptr<X11Connection> connection = X11Connection::open(server.display().c_str(), loop);
    X11Keyboard keyboard{*connection};
    int changes = 0;
    Subscription subscription = keyboard.onChange([this] { ++changes; });

    void setSymbol(std::uint32_t symbol)
    {
        xcb_change_keyboard_mapping(user.raw(), 1, kKeyCodeOf5, 1, &symbol);
        user.synchronize();
    }

    void settle()
    {
        const XcbReply<xcb_get_input_focus_reply_t> reply(
            xcb_get_input_focus_reply(connection->raw(), xcb_get_input_focus(connection->raw()), nullptr));
        loop.turn(Seconds(0));
    }
};

TEST_F(X11KeyboardTest, a_change_is_read_when_the_mapping_is_next_used)
{
    EXPECT_EQ(keyboard.key(kKeyCodeOf5).number, kNumberOf5);
    setSymbol(XK_4);
    settle();
    EXPECT_EQ(keyboard.key(kKeyCodeOf5).number, kNumberOf4);
    setSymbol(XK_5);
    settle();
    EXPECT_EQ(keyboard.key(kKeyCodeOf5).number, kNumberOf5);
}

TEST_F(X11KeyboardTest, changes_are_reported_once_until_the_mapping_is_read)
{
    keyboard.key(kKeyCodeOf5);
    setSymbol(XK_4);
    setSymbol(XK_6);
    settle();
    EXPECT_EQ(changes, 1);
    keyboard.key(kKeyCodeOf5);
    setSymbol(XK_5);
    settle();
    EXPECT_EQ(changes, 2);
}

TEST_F(X11KeyboardTest, a_mapping_is_read_once_for_all_keys_and_modifiers)
{
    keyboard.key(kKeyCodeOf5);
    const auto before = xcb_no_operation(connection->raw()).sequence;
    for (int code = 0; code < 256; ++code)
        keyboard.key(static_cast<std::uint8_t>(code));
    EXPECT_FALSE(keyboard.modifierKeys().empty());
    EXPECT_EQ(xcb_no_operation(connection->raw()).sequence, before + 1) << "no request in between";
}

} // namespace
} // namespace haloric
