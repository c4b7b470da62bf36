#include "hosts/sim/input/SimHotkeys.h"
#include "unit/hosts/sim/SimDesktopFixture.h"

namespace haloric {
namespace {

TEST(SimHotkeys, a_combination_reaches_its_handler_while_it_is_registered)
{
    SimDesktopFixture fixture;
    SimHotkeys hotkeys(fixture.desktop);
    int presses = 0;
    hotkeys.installEventHandler(Hotkeys::kPressed, [&presses] {
        ++presses;
        return Hotkeys::kNoError;
    });
    const auto press = [&fixture](std::uint64_t flags) {
        fixture.desktop.keyboard.press(3, flags);
        fixture.run();
    };
    constexpr auto kAll = ModifierFlags::kControl | ModifierFlags::kOption | ModifierFlags::kCommand;
    press(kAll);
    EXPECT_EQ(presses, 0);
    const HotkeyRef hotkey = hotkeys.registerHotkey({3, 0x1900, 0, 1}, 0);
    press(kAll);
    EXPECT_EQ(presses, 1);
    press(kAll | ModifierFlags::kShift);
    press(ModifierFlags::kCommand);
    EXPECT_EQ(presses, 1);
    hotkeys.unregisterHotkey(hotkey);
    press(kAll);
    EXPECT_EQ(presses, 1);
}

} // namespace
} // namespace haloric
