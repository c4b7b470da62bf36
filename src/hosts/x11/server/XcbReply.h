// Owners for what libxcb allocates with malloc: replies, events, errors.
#pragma once

#include <cstdlib>
#include <memory>

namespace haloric {

struct FreeDeleter {
    void operator()(void* memory) const { std::free(memory); } // NOLINT(cppcoreguidelines-no-malloc): libxcb's rule
};

template <class T>
using XcbReply = std::unique_ptr<T, FreeDeleter>;

} // namespace haloric
