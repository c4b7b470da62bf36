// Weak references: they become nil when their object goes.
#include "runtime/RuntimeState.h"

#include <map>
#include <mutex>
#include <set>

using namespace substitute::runtime;

namespace {

std::map<rt_id, std::set<rt_id*>>& weakReferences()
{
    static auto* one = new std::map<rt_id, std::set<rt_id*>>;
    return *one;
}

void forget(rt_id* place, rt_id object)
{
    if (object)
        if (const auto found = weakReferences().find(object); found != weakReferences().end())
            found->second.erase(place);
}

} // namespace

void substitute::runtime::clearWeakReferences(rt_id object)
{
    const std::lock_guard<HiddenLock> guard(lock());
    const auto found = weakReferences().find(object);
    if (found == weakReferences().end())
        return;
    for (rt_id* place : found->second)
        *place = nullptr;
    weakReferences().erase(found);
}

extern "C" {

rt_id objc_storeWeak(rt_id* place, rt_id object)
{
    const std::lock_guard<HiddenLock> guard(lock());
    forget(place, *place);
    if (object && kindOf(object) == Kind::normal) {
        weakReferences()[object].insert(place);
        headerOf(object).weak = 1;
    }
    return *place = object;
}
rt_id objc_initWeak(rt_id* place, rt_id object)
{
    *place = nullptr;
    return objc_storeWeak(place, object);
}
void objc_destroyWeak(rt_id* place)
{
    const std::lock_guard<HiddenLock> guard(lock());
    forget(place, *place);
}
rt_id objc_loadWeakRetained(rt_id* place)
{
    const std::lock_guard<HiddenLock> guard(lock());
    rt_id object = *place;
    if (!object || (kindOf(object) == Kind::normal && headerOf(object).references <= 0))
        return nullptr; // dying
    return objc_retain(object);
}
rt_id objc_loadWeak(rt_id* place) { return objc_autorelease(objc_loadWeakRetained(place)); }
void objc_copyWeak(rt_id* to, rt_id* from)
{
    rt_id object = objc_loadWeakRetained(from);
    objc_initWeak(to, object);
    objc_release(object);
}
void objc_moveWeak(rt_id* to, rt_id* from)
{
    objc_copyWeak(to, from);
    objc_destroyWeak(from);
}

} // extern "C"
