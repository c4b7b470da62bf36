// What libxcb's C interface leaves to its users: freeing its replies, and casting an event to its struct.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <memory>

#include <xcb/xcb.h>

namespace haloric {

struct FreeDeleter {
    void operator()(void* memory) const { std::free(memory); } // NOLINT(cppcoreguidelines-no-malloc): libxcb's rule
};

// Owns what libxcb allocates with malloc: replies, events, errors.
template <class T>
using XcbReply = std::unique_ptr<T, FreeDeleter>;

// Set in the `response_type` of an event that a client has sent, as opposed to one that the server has made.
constexpr std::uint8_t kSentEventBit = 0x80;

// The event as the struct of its type. The caller has checked `response_type`.
template <class Event>
const Event& eventAs(const xcb_generic_event_t& event)
{
    return reinterpret_cast<const Event&>(event);
}

} // namespace haloric
