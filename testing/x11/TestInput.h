// Input as from the devices themselves, by the XTEST extension. Each call returns after the server has taken it in.
#pragma once

#include "testing/x11/TestConnection.h"

#include <vector>

namespace haloric {

class TestInput {
public:
    explicit TestInput(TestConnection& connection) : m_connection(connection) {}

    void moveTo(int x, int y);
    void press(std::uint8_t button = XCB_BUTTON_INDEX_1);
    void release(std::uint8_t button = XCB_BUTTON_INDEX_1);
    void clickAt(int x, int y);

    // Key symbols as in keysymdef.h; one that the keyboard lacks is left out.
    void pressKey(std::uint32_t keySymbol);
    void releaseKey(std::uint32_t keySymbol);

    // Presses the keys in their order and releases them in the opposite one.
    void chord(const std::vector<std::uint32_t>& keySymbols);

private:
    void fake(std::uint8_t type, std::uint8_t detail, int x = 0, int y = 0);
    std::uint8_t keyCode(std::uint32_t keySymbol);

    TestConnection& m_connection;
};

} // namespace haloric
