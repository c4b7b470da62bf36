// Copies pixels to translucent windows with MIT-SHM. A few shared segments are used in turn; one that the server still
// reads is not reused until its completion event. Without shared memory the pixels are sent through the connection.
// Never waits. Main thread.
//
// A batch is: reserve and put, any number of times, then finish.
#pragma once

#include "drawing/raster/PixelBuffer.h"
#include "foundation/Subscription.h"
#include "hosts/x11/server/X11Connection.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include <xcb/shm.h>

namespace haloric {

// A MIT-SHM segment: pixels that the server reads from this program's memory.
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

class X11ImageUploader {
public:
    static constexpr std::size_t kMostPieces = 8;

    // The connection outlives it.
    explicit X11ImageUploader(X11Connection& connection);
    ~X11ImageUploader();
    X11ImageUploader(const X11ImageUploader&) = delete;
    X11ImageUploader& operator=(const X11ImageUploader&) = delete;

    bool sharesMemory() const { return m_sharesMemory; }

    // The maximum number of pixels of one rectangle.
    int maximumPixels() const { return m_maximumPixels; }

    // Memory for a rectangle of `width` times `height` pixels, with undefined content. No data while the server still
    // reads every segment; try again on a later turn of the loop, which the completion event wakes.
    PixelBuffer reserve(int width, int height);

    // Copies the last reserved rectangle to (x, y) of a window of the depth kTranslucentDepth.
    void put(xcb_window_t window, int x, int y);

    void finish();

private:
    struct Piece {
        std::unique_ptr<X11SharedPixels> shared;
        int used = 0;        // pixels
        bool isRead = false; // by the server
    };
    struct Put {
        xcb_window_t window = XCB_WINDOW_NONE;
        int x = 0;
        int y = 0;
        int width = 0;
        int height = 0;
        int offset = 0; // pixels into the piece
    };

    Piece* findPiece();
    void sendHeldPut(bool last);
    void sealPiece();

    X11Connection& m_connection;
    xcb_gcontext_t m_context;
    bool m_sharesMemory = false;
    int m_maximumPixels;
    std::vector<Piece> m_pieces;
    Piece* m_piece = nullptr; // being filled
    Put m_reserved;
    std::optional<Put> m_heldPut;         // sent once it is known whether another follows from the same piece
    std::vector<std::uint32_t> m_private; // used without shared memory
    Subscription m_completions;
};

} // namespace haloric
