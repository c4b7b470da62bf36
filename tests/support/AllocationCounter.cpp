#include "support/AllocationCounter.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace haloric {
namespace {

std::atomic<std::size_t> g_count{0};

} // namespace

std::size_t allocationCount() { return g_count; }

} // namespace haloric

// The other forms, but for those of overaligned types, call these two.
void* operator new(std::size_t size)
{
    ++haloric::g_count;
    if (void* memory = std::malloc(size > 0 ? size : 1))
        return memory;
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
