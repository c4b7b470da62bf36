#include "testing/x11/TestInput.h"

#include <xcb/xtest.h>

namespace haloric {

void TestInput::moveTo(int x, int y) { fake(XCB_MOTION_NOTIFY, 0, x, y); }
void TestInput::press(std::uint8_t button) { fake(XCB_BUTTON_PRESS, button); }
void TestInput::release(std::uint8_t button) { fake(XCB_BUTTON_RELEASE, button); }

void TestInput::clickAt(int x, int y)
{
    moveTo(x, y);
    press();
    release();
}

void TestInput::pressKey(std::uint32_t keySymbol)
{
    if (const std::uint8_t code = keyCode(keySymbol))
        fake(XCB_KEY_PRESS, code);
}

void TestInput::releaseKey(std::uint32_t keySymbol)
{
    if (const std::uint8_t code = keyCode(keySymbol))
        fake(XCB_KEY_RELEASE, code);
}

void TestInput::chord(const std::vector<std::uint32_t>& keySymbols)
{
    for (const std::uint32_t symbol : keySymbols)
        pressKey(symbol);
    for (auto symbol = keySymbols.rbegin(); symbol != keySymbols.rend(); ++symbol)
        releaseKey(*symbol);
}

void TestInput::fake(std::uint8_t type, std::uint8_t detail, int x, int y)
{
    xcb_test_fake_input(m_connection.raw(), type, detail, XCB_CURRENT_TIME, m_connection.root(),
                        static_cast<std::int16_t>(x), static_cast<std::int16_t>(y), 0);
    m_connection.synchronize();
}

std::uint8_t TestInput::keyCode(std::uint32_t keySymbol)
{
    const xcb_setup_t* setup = xcb_get_setup(m_connection.raw());
    const auto count = static_cast<std::uint8_t>(setup->max_keycode - setup->min_keycode + 1);
    const TestConnection::Reply<xcb_get_keyboard_mapping_reply_t> mapping(xcb_get_keyboard_mapping_reply(
        m_connection.raw(), xcb_get_keyboard_mapping(m_connection.raw(), setup->min_keycode, count), nullptr));
    if (!mapping)
        return 0;
    const xcb_keysym_t* symbols = xcb_get_keyboard_mapping_keysyms(mapping.get());
    const int length = xcb_get_keyboard_mapping_keysyms_length(mapping.get());
    for (int index = 0; index < length; ++index) {
        if (symbols[index] == keySymbol)
            return static_cast<std::uint8_t>(setup->min_keycode + index / mapping->keysyms_per_keycode);
    }
    return 0;
}

} // namespace haloric
