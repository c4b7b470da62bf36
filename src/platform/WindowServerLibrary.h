// Opens a library by path at run time and finds its functions by name.
#pragma once

#include <memory>

namespace haloric {

// An open library; destroying it closes it.
class OpenedLibrary {
public:
    virtual ~OpenedLibrary() = default;

    // The address of a function, or null if the library does not export that name.
    virtual void* find(const char* symbol) const = 0;
};

class WindowServerLibrary {
public:
    // The mode bits of macOS.
    static constexpr int kLazy = 1;
    static constexpr int kLocal = 4;

    virtual ~WindowServerLibrary() = default;

    // Null if the library cannot be opened. Any thread.
    virtual std::unique_ptr<OpenedLibrary> open(const char* path, int mode) = 0;

    // Releases a transaction object that a function of the library created. Main thread.
    virtual void release(void* transaction) = 0;
};

} // namespace haloric
