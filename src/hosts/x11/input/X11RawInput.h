// Raw button and key events of the whole desktop, and which buttons and modifier keys are held. It listens beside
// everybody else: nothing is grabbed, held up or changed, and grabs of others do not hide events from it. Main thread.
//
// The state is kept from the events alone. It is read from the server at the start and whenever input devices come
// or go, because a device takes its releases with it.
#pragma once

#include "foundation/Publisher.h"
#include "foundation/Subscription.h"
#include "hosts/x11/input/X11Keyboard.h"
#include "hosts/x11/server/X11Connection.h"
#include "platform/InputMonitors.h"

#include <bitset>
#include <cstdint>
#include <utility>
#include <vector>

namespace haloric {

class X11RawInput {
public:
    // The connection outlives it. A few round trips.
    explicit X11RawInput(X11Connection& connection);

    // Whether the server offers raw events; without them nothing is ever delivered, nor held.
    bool isAvailable() const { return m_available; }

    // Left, right and other buttons; the wheel counts as none.
    Subscription onButton(std::function<void(const EventType&)> handler)
    {
        return m_buttons.subscribe(std::move(handler));
    }

    // A key went down: its virtual key number and the modifier flags. Keys without a number are left out.
    Subscription onKeyDown(std::function<void(const TapEvent&)> handler)
    {
        return m_keyDowns.subscribe(std::move(handler));
    }

    // One bit a button: left 0, right 1, middle 2, then the others.
    std::uint64_t pressedButtons() const { return m_pressedButtons; }

private:
    bool selectEvents();
    void readState();
    void readButtonMapping();
    void receive(const xcb_generic_event_t& event);
    void receiveButton(std::uint32_t physicalButton, bool pressed);
    void receiveKey(std::uint8_t keyCode, bool pressed);
    std::uint64_t heldModifiers() const;

    X11Connection& m_connection;
    X11Keyboard m_keyboard;
    bool m_available;
    std::vector<std::uint8_t> m_buttonMapping; // logical button of each physical one
    std::uint64_t m_pressedButtons = 0;
    std::bitset<X11Keyboard::kKeyCodes> m_heldKeys;
    bool m_capsLocked = false;
    Publisher<EventType> m_buttons;
    Publisher<TapEvent> m_keyDowns;
    Subscription m_rawEvents;
    Subscription m_mappingChanges;
};

} // namespace haloric
