// Reads the properties and the geometry of windows, for any number of them in the same few round trips: all requests
// are sent before the first reply is read. Windows that vanish meanwhile are left out.
//
// Blocks on the X server, never on a client. Used only on the thread that reads its connection's replies.
#pragma once

#include "hosts/x11/server/X11Atoms.h"
#include "hosts/x11/windows/X11Client.h"

#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <vector>

#include <xcb/res.h>
#include <xcb/xcb.h>

namespace haloric {

// The process that a window belongs to. The X server's own id of a local client comes first; a property comes second,
// because clients can set it to anything. A window with neither belongs to a made-up process, one for each connection,
// for as long as the connection lasts.
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

class X11ClientReader {
public:
    // `atoms` outlives it.
    X11ClientReader(xcb_connection_t* connection, xcb_window_t root, const X11Atoms& atoms)
        : m_connection(connection),
          m_root(root),
          m_atoms(atoms)
    {
    }

    // Where a frame window holds one client only, take what it has around the client for the decoration, instead of the
    // property: for window managers that do not announce the property.
    void measureDecoration(bool fromFrames) { m_measuresFrames = fromFrames; }

    // One record for each window, in their order; absent where the window has vanished.
    std::vector<std::optional<X11ClientRecord>> read(std::span<const xcb_window_t> windows) const;

    // Measures again where windows lie in their known frames: one round trip. A client whose window has vanished is not
    // changed.
    void measure(std::span<X11Client* const> clients) const;

    // The child of the root that holds a window.
    struct Frame {
        xcb_window_t window = XCB_WINDOW_NONE; // XCB_WINDOW_NONE: the held window has vanished
        bool holdsOneChild = false;            // and that is the window itself
    };
    std::vector<Frame> frames(std::span<const xcb_window_t> windows) const;

private:
    struct Facts;
    struct Measurement;

    Facts askForFacts(xcb_window_t window) const;
    std::optional<X11ClientRecord> takeFacts(xcb_window_t window, Facts& facts) const;
    X11WindowType typeFrom(const class X11Property& types, bool isTransient) const;
    Measurement askForMeasurement(const X11Client& client) const;
    void takeMeasurement(X11Client& client, Measurement& measurement, const xcb_get_geometry_reply_t& root) const;

    xcb_connection_t* m_connection;
    xcb_window_t m_root;
    const X11Atoms& m_atoms;
    bool m_measuresFrames = false;
};

} // namespace haloric
