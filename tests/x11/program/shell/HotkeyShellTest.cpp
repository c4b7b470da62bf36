// The hotkey that opens the settings from anywhere, on the keyboard of the whole desktop.
#include "testing/x11/Key.h"
#include "x11/program/shell/SettingsForm.h"

namespace haloric {
namespace {

constexpr const char* kOn = R"({"pulseEnabled": false, "hotkeyEnabled": true})";
constexpr std::uint16_t kModifiers = XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1 | XCB_MOD_MASK_4; // with Alt and Super
constexpr std::uint8_t kKeyCodeOfF = 41;

class HotkeyShell : public SettingsForm {
protected:
    void pressHotkey() { session.input().chord({Key::kControl, Key::kAlt, Key::kSuper, 'f'}); }

    void closeSettings()
    {
        session.input().chord({Key::kControl, 'w'});
        ASSERT_TRUE(session.observer().waitUntil([this] { return shell->window() == XCB_WINDOW_NONE; }));
    }

    // Takes the combination for another program, if nobody has it.
    bool grab()
    {
        xcb_connection_t* raw = other.raw();
        const TestConnection::Reply<xcb_generic_error_t> error(
            xcb_request_check(raw, xcb_grab_key_checked(raw, 0, other.root(), kModifiers, kKeyCodeOfF,
                                                        XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC)));
        return !error;
    }
    void release()
    {
        xcb_ungrab_key(other.raw(), kKeyCodeOfF, other.root(), kModifiers);
        other.synchronize();
    }

    // Asks for the combination only once the program has it: it would not try again.
    void waitUntilOn()
    {
        ASSERT_TRUE(waitForStored([](const Settings& now) { return now.hotkeyEnabled; }));
        waitUntilIdle();
        EXPECT_FALSE(isFree());
    }

    // Whether the combination can be had by another program.
    bool isFree()
    {
        const bool isMine = grab();
        if (isMine)
            release();
        return isMine;
    }

    TestConnection other{session.display()};
};
INSTANTIATE_TEST_SUITE_P(Desktops, HotkeyShell, testing::Values(kOpenboxPicom), nameOf);

TEST_P(HotkeyShell, it_opens_the_settings_whatever_locks_are_on)
{
    startInTray(kOn);
    for (const std::uint32_t lock : {0U, Key::kNumLock, Key::kCapsLock}) { // each stays on
        if (lock != 0)
            press(lock);
        pressHotkey();
        ASSERT_TRUE(shell->waitUntilActive()) << lock;
        closeSettings();
        ASSERT_TRUE(client->focus());
    }
}

TEST_P(HotkeyShell, it_is_taken_and_given_back_as_the_settings_window_says)
{
    ASSERT_TRUE(isFree());
    open();
    EXPECT_TRUE(isFree()) << "it is off at first";
    goTo("hotkeyEnabled");
    press(Key::kSpace);
    waitUntilOn();
    press(Key::kSpace);
    EXPECT_TRUE(session.observer().waitUntil([this] { return isFree(); }));
    EXPECT_TRUE(waitForStored([](const Settings& now) { return !now.hotkeyEnabled; }));
}

TEST_P(HotkeyShell, switched_on_in_the_window_it_opens_that_window_again)
{
    open();
    goTo("hotkeyEnabled");
    press(Key::kSpace);
    waitUntilOn();
    closeSettings();
    pressHotkey();
    EXPECT_TRUE(shell->waitUntilActive());
}

TEST_P(HotkeyShell, taken_by_another_program_it_silently_does_nothing)
{
    int presses = 0;
    other.onEvent = [&](const xcb_generic_event_t& event) { presses += event.response_type == XCB_KEY_PRESS ? 1 : 0; };
    ASSERT_TRUE(grab());
    startInTray(kOn);
    const std::string before = log();
    pressHotkey();
    EXPECT_TRUE(other.waitUntil([&] { return presses == 1; }));
    waitUntilIdle();
    EXPECT_EQ(shell->window(), static_cast<xcb_window_t>(XCB_WINDOW_NONE));
    EXPECT_EQ(log(), before);
    EXPECT_TRUE(stored()->hotkeyEnabled);
    EXPECT_TRUE(waitForBorder(*client));
}

} // namespace
} // namespace haloric
