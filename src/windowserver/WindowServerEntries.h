// The eight entry points of the window server's private library as C functions. Unless said otherwise they return a
// 32-bit error code, 0 for success.
#pragma once

#include <cstdint>

namespace haloric {

struct WindowServerEntries {
    struct CRect { // the layout of macOS's rectangle
        double x, y, width, height;
    };
    struct CPoint {
        double x, y;
    };
    // The data begin with the 32-bit number of the window.
    using NotifyProc = void (*)(std::uint32_t event, const void* data, std::int64_t length, void* context);

    std::int32_t (*mainConnection)() = nullptr; // the connection ID
    std::int32_t (*getBounds)(std::int32_t connection, std::uint32_t window, CRect* bounds) = nullptr;
    std::int32_t (*registerProc)(NotifyProc, std::uint32_t event, void* context) = nullptr;
    std::int32_t (*removeProc)(NotifyProc, std::uint32_t event, void* context) = nullptr;
    std::int32_t (*request)(std::int32_t connection, const std::uint32_t* windows, std::int32_t count) = nullptr;
    void* (*create)(std::int32_t connection) = nullptr; // a transaction, or null; the caller releases it
    std::int32_t (*move)(void* transaction, std::uint32_t window, CPoint origin) = nullptr;
    std::int32_t (*commit)(void* transaction, std::int32_t zero) = nullptr;
};

} // namespace haloric
