// XInput raw events: button and key events of the whole desktop, and which buttons and modifier keys are held. It only
// listens: nothing is grabbed, delayed or changed, and grabs of other clients do not hide events from it. Main thread.
//
// The state follows the events. It is read from the server at the start and whenever input devices come or go,
// because a device that is removed sends no releases.
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
    // Both outlive it. A few round trips.
    X11RawInput(X11Connection& connection, X11Keyboard& keyboard);

    // Whether the server offers raw events; without them no event is delivered and no button is held.
    bool isAvailable() const { return m_available; }

    // Left, right and other buttons, without the wheel.
    Subscription onButton(std::function<void(const EventType&)> handler)
    {
        return m_buttons.subscribe(std::move(handler));
    }

    // A key went down: its virtual key number and the modifier flags. Keys without a number are not delivered. Super is
    // not reported as Command: with Shift and a digit, which opens the screenshot interface of macOS, it moves windows
    // to workspaces under many window managers. Here the Print key opens that interface.
    Subscription onKeyDown(std::function<void(const TapEvent&)> handler)
    {
        return m_keyDowns.subscribe(std::move(handler));
    }

    // Bit 0 is the left button, 1 the right, 2 the middle, then the others.
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
    X11Keyboard& m_keyboard;
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
