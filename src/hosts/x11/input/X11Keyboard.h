// The keys of the keyboard by their codes, as the layout in force names them. Follows changes of the layout. Main
// thread.
#pragma once

#include "foundation/Subscription.h"
#include "hosts/x11/input/X11KeyNames.h"
#include "hosts/x11/server/X11Connection.h"

#include <array>

namespace haloric {

class X11Keyboard {
public:
    static constexpr std::size_t kKeyCodes = 256;

    // The connection outlives it. One round trip, and one for each change of the layout.
    explicit X11Keyboard(X11Connection& connection);

    const X11Key& key(std::uint8_t keyCode) const { return m_keys[keyCode]; }

private:
    void read();

    X11Connection& m_connection;
    std::array<X11Key, kKeyCodes> m_keys;
    Subscription m_mappingChanges;
};

} // namespace haloric
