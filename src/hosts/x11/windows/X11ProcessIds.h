// Which process a window belongs to. The X server knows the process behind each local connection and cannot be
// lied to; a property may tell otherwise; and a window of which neither tells anything belongs to a made-up
// process, one for each connection, that stays the same as long as the connection does.
#pragma once

#include "foundation/Ids.h"

#include <cstdint>
#include <map>
#include <optional>
#include <span>

#include <xcb/res.h>
#include <xcb/xcb.h>

namespace haloric {

class X11ProcessIds {
public:
    // Made-up ids start here: above every process id that Linux hands out (4,194,304 at most).
    static constexpr std::int32_t kFirstPseudoId = 0x40000000;

    // Asks the server about the owners of all `windows` at once, without waiting.
    X11ProcessIds(xcb_connection_t* connection, std::span<const xcb_window_t> windows);
    ~X11ProcessIds();
    X11ProcessIds(const X11ProcessIds&) = delete;
    X11ProcessIds& operator=(const X11ProcessIds&) = delete;

    // Waits for the server's answer, the first time.
    ProcessID of(xcb_window_t window, std::optional<std::uint32_t> propertyValue);

    // `resourceMask`: the bits of an X id that its owner chooses; the others tell the connection.
    static ProcessID choose(std::optional<std::uint32_t> serverTold, std::optional<std::uint32_t> propertyValue,
                            xcb_window_t window, std::uint32_t resourceMask);

private:
    void takeAnswer();

    xcb_connection_t* m_connection;
    std::uint32_t m_resourceMask;
    std::optional<xcb_res_query_client_ids_cookie_t> m_cookie;
    std::map<std::uint32_t, std::uint32_t> m_byConnection; // process ids by the fixed bits of X ids
};

} // namespace haloric
