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

namespace {

void* countedAllocation(std::size_t size) noexcept
{
    ++haloric::g_count;
    return std::malloc(size > 0 ? size : 1);
}

} // namespace

// The forms for arrays call these, those for overaligned types are not replaced. Where a sanitizer brings forms of its
// own, what is not replaced here would not fit what is.
void* operator new(std::size_t size)
{
    if (void* memory = countedAllocation(size))
        return memory;
    throw std::bad_alloc();
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return countedAllocation(size); }

void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete(void* memory, const std::nothrow_t&) noexcept { std::free(memory); }
