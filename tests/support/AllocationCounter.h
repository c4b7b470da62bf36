// How many allocations this program has made. Linking AllocationCounter.cpp replaces the global operators, so only a
// program that counts does. Any thread.
#pragma once

#include <cstddef>

namespace haloric {

std::size_t allocationCount();

} // namespace haloric
