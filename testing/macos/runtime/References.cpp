// Reference counts and autorelease pools. Strict: an object that is
// autoreleased without a pool, released too often or asked after its death is
// an error.
#include "runtime/RuntimeState.h"

#include <utility>
#include <vector>

using namespace substitute::runtime;

namespace {

struct Pools {
    std::vector<rt_id> objects; // null marks where a pool begins
    rt_id handedOver = nullptr; // an autoreleased result whose caller may take it over
    ~Pools();
};
thread_local Pools t_pools;

bool isCounted(rt_id object)
{
    return object && !rt_is_meta(object->isa) &&
           (kindOf(object) == Kind::normal || kindOf(object) == Kind::mallocBlock);
}

void check(rt_id object, const char* what)
{
    if (headerOf(object).magic != kMagic)
        rt_fatal("%s of %p, which is no object", what, static_cast<void*>(object));
}

void intoPool(rt_id object)
{
    if (t_pools.objects.empty())
        rt_fatal("%s %p autoreleased with no pool in place: it would never be released", class_getName(object->isa),
                 static_cast<void*>(object));
    t_pools.objects.push_back(object);
}

void settle()
{
    if (rt_id object = std::exchange(t_pools.handedOver, nullptr))
        intoPool(object);
}

Pools::~Pools() // the thread ends
{
    settle();
    while (!objects.empty()) {
        rt_id object = objects.back();
        objects.pop_back();
        objc_release(object);
    }
}

} // namespace

extern "C" {

rt_id objc_retain(rt_id object)
{
    if (!object || dataOf(object->isa).meta)
        return object;
    switch (kindOf(object)) {
    case Kind::normal:
        check(object, "retain");
        ++headerOf(object).references;
        return object;
    case Kind::mallocBlock:
        return static_cast<rt_id>(_Block_copy(object));
    default:
        return object;
    }
}

void objc_release(rt_id object)
{
    if (!object || rt_is_meta(object->isa))
        return;
    switch (kindOf(object)) {
    case Kind::normal: {
        check(object, "release");
        RT_TSAN_RELEASE(object);
        const auto left = --headerOf(object).references;
        if (left < 0)
            rt_fatal("%s %p released too often", class_getName(object->isa), static_cast<void*>(object));
        if (left == 0) {
            RT_TSAN_ACQUIRE(object);
            static const rt_SEL dealloc = sel_registerName("dealloc");
            reinterpret_cast<void (*)(rt_id, rt_SEL)>(rt_lookup(object, dealloc))(object, dealloc);
        }
        return;
    }
    case Kind::mallocBlock:
        _Block_release(object);
        return;
    default:
        return;
    }
}

std::size_t rt_retain_count(rt_id object) { return static_cast<std::size_t>(headerOf(object).references.load()); }

rt_id objc_autorelease(rt_id object)
{
    if (isCounted(object))
        intoPool(object);
    return object;
}

void* objc_autoreleasePoolPush()
{
    settle();
    t_pools.objects.push_back(nullptr);
    return reinterpret_cast<void*>(t_pools.objects.size());
}

void objc_autoreleasePoolPop(void* token)
{
    settle();
    const auto size = reinterpret_cast<std::size_t>(token);
    if (size == 0 || size > t_pools.objects.size())
        rt_fatal("an autorelease pool is popped that was popped before");
    while (t_pools.objects.size() >= size) {
        rt_id object = t_pools.objects.back();
        t_pools.objects.pop_back();
        objc_release(object);
    }
}

// A result that its caller takes over at once never sees a pool, as on the real
// system.
rt_id objc_autoreleaseReturnValue(rt_id object)
{
    if (!isCounted(object))
        return object;
    settle();
    t_pools.handedOver = object;
    return object;
}
rt_id objc_retainAutoreleaseReturnValue(rt_id object) { return objc_autoreleaseReturnValue(objc_retain(object)); }
rt_id objc_retainAutorelease(rt_id object) { return objc_autorelease(objc_retain(object)); }

rt_id objc_retainAutoreleasedReturnValue(rt_id object)
{
    if (object && t_pools.handedOver == object) {
        t_pools.handedOver = nullptr;
        return object;
    }
    settle();
    return objc_retain(object);
}
rt_id objc_unsafeClaimAutoreleasedReturnValue(rt_id object)
{
    if (object && t_pools.handedOver == object) {
        t_pools.handedOver = nullptr;
        objc_release(object);
    }
    return object;
}
rt_id objc_claimAutoreleasedReturnValue(rt_id object) { return objc_unsafeClaimAutoreleasedReturnValue(object); }

void objc_storeStrong(rt_id* place, rt_id object)
{
    rt_id before = *place;
    if (before == object)
        return;
    objc_retain(object);
    *place = object;
    objc_release(before);
}

} // extern "C"
