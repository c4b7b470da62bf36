// A MIT-SHM segment: pixels that the server reads from this program's memory. Main thread.
#pragma once

#include "hosts/x11/server/X11Connection.h"

#include <cstdint>
#include <memory>

#include <xcb/shm.h>

namespace haloric {

class X11SharedPixels {
public:
    static constexpr int kPixels = 256 * 1024; // 1 MiB; untouched pages take no memory

    // Null if the server cannot share memory with this program: it runs on another machine or lacks MIT-SHM 1.2. One
    // round trip.
    static std::unique_ptr<X11SharedPixels> make(X11Connection& connection);
    ~X11SharedPixels();
    X11SharedPixels(const X11SharedPixels&) = delete;
    X11SharedPixels& operator=(const X11SharedPixels&) = delete;

    std::uint32_t* data() const { return m_data; }
    xcb_shm_seg_t segment() const { return m_segment; }

private:
    X11SharedPixels(X11Connection& connection, std::uint32_t* data) : m_connection(connection), m_data(data) {}

    X11Connection& m_connection;
    std::uint32_t* m_data;
    xcb_shm_seg_t m_segment = XCB_NONE;
};

} // namespace haloric
