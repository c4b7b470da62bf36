// The server's keyboard mapping: what the keys mean by their codes, and which of them set the modifiers. One for the
// connection, shared by raw input and hotkeys. A change of the layout sends several events; the mapping is read once,
// when it is next used. Main thread.
#pragma once

#include "foundation/Publisher.h"
#include "foundation/Subscription.h"
#include "foundation/Task.h"
#include "hosts/x11/input/X11KeyNames.h"
#include "hosts/x11/server/X11Connection.h"

#include <array>
#include <cstdint>
#include <span>
#include <vector>

namespace haloric {

class X11Keyboard {
public:
    static constexpr std::size_t kKeyCodes = 256;

    // The connection outlives it.
    explicit X11Keyboard(X11Connection& connection);

    // Both as of the last mapping event. One round trip for the first call after a change, none otherwise.
    const X11Key& key(std::uint8_t keyCode);
    std::span<const std::uint8_t> modifierKeys(); // as the protocol has it: eight groups of the same size

    // Called inside the event after which the mapping has to be read again; not for further events until it is read.
    Subscription onChange(Task handler) { return m_changes.subscribe(std::move(handler)); }

private:
    void readIfChanged();

    X11Connection& m_connection;
    std::array<X11Key, kKeyCodes> m_keys;
    std::vector<std::uint8_t> m_modifierKeys;
    bool m_hasChanged = true; // since it was read
    Publisher<> m_changes;
    Subscription m_events;
};

} // namespace haloric
