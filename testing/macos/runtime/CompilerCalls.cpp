// What the compiler calls in place of common messages, for properties,
// enumeration and exceptions.
#include "runtime/RuntimeState.h"

#include <cstring>
#include <mutex>
#include <utility>

using namespace substitute::runtime;

extern "C" {

void objc_storeStrong(rt_id* place, rt_id object);
rt_id objc_retainAutorelease(rt_id object);

static rt_id send(rt_id object, const char* name)
{
    const rt_SEL sel = sel_registerName(name);
    return reinterpret_cast<rt_id (*)(rt_id, rt_SEL)>(rt_lookup(object, sel))(object, sel);
}
rt_id objc_alloc(objc_class_t* cls) { return cls ? send(reinterpret_cast<rt_id>(cls), "alloc") : nullptr; }
rt_id objc_allocWithZone(objc_class_t* cls) { return objc_alloc(cls); }
rt_id objc_alloc_init(objc_class_t* cls) { return cls ? send(objc_alloc(cls), "init") : nullptr; }
rt_id objc_opt_new(objc_class_t* cls) { return objc_alloc_init(cls); }
rt_id objc_opt_self(rt_id object) { return object; }
rt_id objc_opt_class(rt_id object) { return object ? send(object, "class") : nullptr; }
signed char objc_opt_isKindOfClass(rt_id object, objc_class_t* cls)
{
    for (objc_class_t* at = object_getClass(object); at; at = at->superclass)
        if (at == cls)
            return 1;
    return 0;
}
signed char objc_opt_respondsToSelector(rt_id object, rt_SEL sel) { return object && rt_find(object->isa, sel); }
rt_id objc_getProperty(rt_id self, rt_SEL, std::ptrdiff_t offset, signed char atomic)
{
    auto* place = reinterpret_cast<rt_id*>(reinterpret_cast<char*>(self) + offset);
    if (!atomic)
        return *place;
    const std::lock_guard<HiddenLock> guard(lock());
    return objc_retainAutorelease(*place);
}
void objc_setProperty_nonatomic(rt_id self, rt_SEL, rt_id value, std::ptrdiff_t offset)
{
    objc_storeStrong(reinterpret_cast<rt_id*>(reinterpret_cast<char*>(self) + offset), value);
}
void objc_setProperty_atomic(rt_id self, rt_SEL sel, rt_id value, std::ptrdiff_t offset)
{
    const std::lock_guard<HiddenLock> guard(lock());
    objc_setProperty_nonatomic(self, sel, value, offset);
}
void objc_setProperty_nonatomic_copy(rt_id self, rt_SEL, rt_id value, std::ptrdiff_t offset)
{
    static const rt_SEL copy = sel_registerName("copy");
    rt_id made = value ? reinterpret_cast<rt_id (*)(rt_id, rt_SEL)>(rt_lookup(value, copy))(value, copy) : nullptr;
    auto* place = reinterpret_cast<rt_id*>(reinterpret_cast<char*>(self) + offset);
    rt_id before = std::exchange(*place, made);
    objc_release(before);
}
void objc_setProperty_atomic_copy(rt_id self, rt_SEL sel, rt_id value, std::ptrdiff_t offset)
{
    objc_setProperty_nonatomic_copy(self, sel, value, offset);
}
void objc_copyStruct(void* to, const void* from, std::ptrdiff_t size, signed char, signed char)
{
    std::memmove(to, from, static_cast<std::size_t>(size));
}
void objc_enumerationMutation(rt_id object)
{
    rt_fatal("%s was mutated while being enumerated", class_getName(object->isa));
}
void objc_exception_throw(rt_id object)
{
    rt_fatal("an exception of class %s was thrown", class_getName(object_getClass(object)));
}
int objc_sync_enter(rt_id)
{
    lock().lock();
    return 0;
}
int objc_sync_exit(rt_id)
{
    lock().unlock();
    return 0;
}

} // extern "C"
