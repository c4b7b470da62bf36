// The process that a window belongs to. The X server's own id of a local client comes first; a property comes second,
// because clients can set it to anything. A window with neither belongs to a made-up process, one for each connection,
// for as long as the connection lasts.
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
    // Made-up ids start here, above every process id of Linux (4,194,304 at most).
    static constexpr std::int32_t kFirstPseudoId = 0x40000000;

    // Requests the owners of all `windows` in one request, without waiting.
    X11ProcessIds(xcb_connection_t* connection, std::span<const xcb_window_t> windows);
    ~X11ProcessIds();
    X11ProcessIds(const X11ProcessIds&) = delete;
    X11ProcessIds& operator=(const X11ProcessIds&) = delete;

    // Blocks on the server the first time.
    ProcessID of(xcb_window_t window, std::optional<std::uint32_t> propertyId);

    // `resourceMask`: the bits of an X id that its owner chooses; the others identify the connection.
    static ProcessID choose(std::optional<std::uint32_t> serverId, std::optional<std::uint32_t> propertyId,
                            xcb_window_t window, std::uint32_t resourceMask);

private:
    void takeAnswer();

    xcb_connection_t* m_connection;
    std::uint32_t m_resourceMask;
    std::optional<xcb_res_query_client_ids_cookie_t> m_cookie;
    std::map<std::uint32_t, std::uint32_t> m_byConnection; // process ids by the fixed bits of X ids
};

} // namespace haloric
