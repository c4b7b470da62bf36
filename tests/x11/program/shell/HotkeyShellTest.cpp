// The global hotkey that opens the settings.
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

    // Grabs the combination for another program. False if it is grabbed already.
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

    // Checks the grab only after the program is idle: a grab by the check would make the program's own fail for good.
    void waitUntilOn()
    {
        ASSERT_TRUE(waitForStored([](const Settings& now) { return now.hotkeyEnabled; }));
        waitUntilIdle();
        EXPECT_FALSE(isFree());
    }

    // Whether another program can grab the combination.
    bool isFree()
    {
        const bool isGrabbed = grab();
        if (isGrabbed)
            release();
        return isGrabbed;
    }

    TestConnection other{session.display()};
};
INSTANTIATE_TEST_SUITE_P(Desktops, HotkeyShell, testing::Values(kOpenboxPicom), nameOf);

TEST_P(HotkeyShell, it_opens_the_settings_with_any_lock_on)
{
    startInTray(kOn);
    for (const std::uint32_t lock : {0U, Key::kNumLock, Key::kCapsLock}) { // each lock stays on
        if (lock != 0)
            press(lock);
        pressHotkey();
        ASSERT_TRUE(shell->waitUntilActive()) << lock;
        ASSERT_TRUE(shell->closeSettings());
        ASSERT_TRUE(client->focus());
    }
}

TEST_P(HotkeyShell, the_settings_window_grabs_and_releases_it)
{
    ASSERT_TRUE(isFree());
    open();
    EXPECT_TRUE(isFree()) << "it is off by default";
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
    ASSERT_TRUE(shell->closeSettings());
    pressHotkey();
    EXPECT_TRUE(shell->waitUntilActive());
}

TEST_P(HotkeyShell, grabbed_by_another_program_it_does_nothing_and_reports_nothing)
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
