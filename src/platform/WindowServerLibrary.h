// Opens a library by path at run time and finds its functions by name.
#pragma once

#include <memory>
#include <string_view>

namespace haloric {

// An open library; destroying it closes it.
class OpenedLibrary {
public:
    virtual ~OpenedLibrary() = default;

    // The address of a function, or null when the library has none of that name.
    virtual void* find(const char* symbol) const = 0;
};

class WindowServerLibrary {
public:
    // The platform's bits for opening a library.
    static constexpr int kLazy = 1;
    static constexpr int kLocal = 4;

    virtual ~WindowServerLibrary() = default;

    // Null when the library cannot be opened. Any thread.
    virtual std::unique_ptr<OpenedLibrary> open(const char* path, int mode) = 0;

    // Gives a transaction object back that an entry of the library created. Main thread.
    virtual void release(void* transaction) = 0;
};

} // namespace haloric
