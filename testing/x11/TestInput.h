// Input events as from devices, by the XTEST extension. Each call returns after the X server has processed the event.
#pragma once

#include "testing/x11/TestConnection.h"

#include <vector>

namespace haloric {

class TestInput {
public:
    explicit TestInput(TestConnection& connection) : m_connection(connection) {}

    void moveTo(int x, int y); // root coordinates
    void press(std::uint8_t button = XCB_BUTTON_INDEX_1);
    void release(std::uint8_t button = XCB_BUTTON_INDEX_1);
    void clickAt(int x, int y);

    // Key symbols as in Key.h. A symbol that the keyboard lacks is ignored.
    void pressKey(std::uint32_t keySymbol);
    void releaseKey(std::uint32_t keySymbol);

    // Presses the keys in order and releases them in reverse order.
    void chord(const std::vector<std::uint32_t>& keySymbols);

private:
    void fake(std::uint8_t type, std::uint8_t detail, int x = 0, int y = 0);
    std::uint8_t keyCode(std::uint32_t keySymbol);

    TestConnection& m_connection;
};

} // namespace haloric
