// Blocks: copies on the heap, captured objects and __block variables, as the
// published block ABI of clang has them.
#include "runtime/RuntimeState.h"

#include <cstdlib>
#include <cstring>

using namespace substitute::runtime;

extern "C" {

struct Block {
    objc_class_t* isa;
    std::atomic<std::int32_t> flags;
    std::int32_t reserved;
    void (*invoke)(void*, ...);
    struct Descriptor {
        unsigned long reserved, size;
        void (*copy)(void*, const void*);
        void (*dispose)(const void*);
    } * descriptor;
};
enum : std::int32_t { kNeedsFree = 1 << 24, kHasCopy = 1 << 25, kIsGlobal = 1 << 28, kCountMask = 0xfffe };

extern objc_class_t rt_malloc_block_class; // an alias, defined with the class

void* _Block_copy(const void* given)
{
    if (!given)
        return nullptr;
    auto* block = static_cast<Block*>(const_cast<void*>(given));
    if (block->flags & kIsGlobal)
        return block;
    if (block->flags & kNeedsFree) {
        block->flags += 2;
        return block;
    }
    auto* copy = static_cast<Block*>(std::malloc(block->descriptor->size));
    std::memcpy(static_cast<void*>(copy), block, block->descriptor->size);
    copy->flags = (copy->flags & ~kCountMask) | kNeedsFree | 2;
    copy->isa = &rt_malloc_block_class;
    ++dataOf(&rt_malloc_block_class).live;
    if (copy->flags & kHasCopy)
        copy->descriptor->copy(copy, block);
    return copy;
}

void _Block_release(const void* given)
{
    auto* block = static_cast<Block*>(const_cast<void*>(given));
    if (!block || block->flags & kIsGlobal || !(block->flags & kNeedsFree))
        return;
    RT_TSAN_RELEASE(block);
    if ((block->flags -= 2) & kCountMask)
        return;
    RT_TSAN_ACQUIRE(block);
    if (block->flags & kHasCopy)
        block->descriptor->dispose(block);
    --dataOf(&rt_malloc_block_class).live;
    std::free(block);
}

struct ByRef {
    void* isa;
    ByRef* forwarding;
    std::atomic<std::int32_t> flags;
    std::uint32_t size;
    void (*keep)(ByRef*, ByRef*);
    void (*destroy)(ByRef*);
};
enum { kFieldObject = 3, kFieldBlock = 7, kFieldByRef = 8, kFieldWeak = 16, kCaller = 128 };

void _Block_object_assign(void* to, const void* from, int flags)
{
    switch (flags & (kFieldObject | kFieldBlock | kFieldByRef | kFieldWeak | kCaller)) {
    case kFieldObject:
        *static_cast<const void**>(to) = objc_retain(static_cast<rt_id>(const_cast<void*>(from)));
        break;
    case kFieldBlock:
        *static_cast<const void**>(to) = _Block_copy(from);
        break;
    case kFieldByRef:
    case kFieldByRef | kFieldWeak: {
        auto* source = static_cast<ByRef*>(const_cast<void*>(from));
        if (!(source->forwarding->flags & kNeedsFree)) {
            auto* copy = static_cast<ByRef*>(std::malloc(source->size));
            std::memcpy(static_cast<void*>(copy), source, source->size);
            copy->flags = (copy->flags & ~kCountMask) | kNeedsFree | 4; // one for the caller, one for the stack
            copy->forwarding = copy;
            source->forwarding = copy;
            if (source->flags & kHasCopy)
                copy->keep(copy, source);
        } else {
            source->forwarding->flags += 2;
        }
        *static_cast<const void**>(to) = source->forwarding;
        break;
    }
    default:
        *static_cast<const void**>(to) = from;
    }
}

void _Block_object_dispose(const void* object, int flags)
{
    switch (flags & (kFieldObject | kFieldBlock | kFieldByRef | kFieldWeak | kCaller)) {
    case kFieldObject:
        objc_release(static_cast<rt_id>(const_cast<void*>(object)));
        break;
    case kFieldBlock:
        _Block_release(object);
        break;
    case kFieldByRef:
    case kFieldByRef | kFieldWeak: {
        auto* by = static_cast<ByRef*>(const_cast<void*>(object))->forwarding;
        if (!(by->flags & kNeedsFree) || (by->flags -= 2) & kCountMask)
            return;
        if (by->flags & kHasCopy)
            by->destroy(by);
        std::free(by);
        break;
    }
    default:
        break;
    }
}

void* objc_retainBlock(const void* block) { return _Block_copy(block); }

} // extern "C"
