// Selectors, classes and look-up of methods.
#include "runtime/RuntimeState.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <string>
#include <unordered_set>

#include <sched.h>
#include <sys/stat.h>
#include <unistd.h>

#if defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#include <sanitizer/common_interface_defs.h>
#define RT_TRACE() __sanitizer_print_stack_trace()
#endif
#endif
#ifndef RT_TRACE
#include <execinfo.h>
namespace {
void printTrace()
{
    void* frames[64];
    backtrace_symbols_fd(frames, backtrace(frames, 64), STDERR_FILENO);
}
} // namespace
#define RT_TRACE() printTrace()
#endif

namespace substitute::runtime {
namespace {

int g_standardError = STDERR_FILENO;

bool isStandardErrorOfStart()
{
    struct stat now {};
    struct stat start {};
    return fstat(STDERR_FILENO, &now) == 0 && fstat(g_standardError, &start) == 0 && now.st_dev == start.st_dev &&
           now.st_ino == start.st_ino;
}

std::unordered_set<std::string>& selectors()
{
    static auto* one = new std::unordered_set<std::string>;
    return *one;
}

std::unordered_map<std::string, objc_class_t*>& classes()
{
    static auto* one = new std::unordered_map<std::string, objc_class_t*>;
    return *one;
}

void addMethods(objc_class_t* cls, const method_list_t* list)
{
    if (!list)
        return;
    ClassData& data = dataOf(cls);
    const auto* bytes = reinterpret_cast<const char*>(list->list);
    for (std::uint32_t i = 0; i < list->count; ++i) {
        const auto& method = *reinterpret_cast<const method_t*>(bytes + i * (list->entsize & ~3u));
        data.methods[sel_registerName(method.name)] = method.imp;
    }
}

// The superclass may have grown since the class was compiled: moves the class's
// own variables behind it.
std::size_t slideVariables(objc_class_t* cls, std::size_t start)
{
    if (cls->ro->instanceStart >= start)
        return 0;
    std::size_t most = 8;
    const ivar_list_t* ivars = cls->ro->ivars;
    const std::uint32_t count = ivars ? ivars->count : 0;
    for (std::uint32_t i = 0; i < count; ++i)
        if (ivars->list[i].alignment != ~0u)
            most = std::max(most, std::size_t{1} << ivars->list[i].alignment);
    const std::size_t shift = (start - cls->ro->instanceStart + most - 1) & ~(most - 1);
    for (std::uint32_t i = 0; i < count; ++i)
        if (ivars->list[i].offset)
            *ivars->list[i].offset += static_cast<std::int32_t>(shift);
    return shift;
}

void realize(objc_class_t* cls, bool meta);

void realizeInstances(objc_class_t* cls, ClassData& data)
{
    const auto own = [&](const char* name) {
        const auto found = data.methods.find(sel_registerName(name));
        return found == data.methods.end() ? nullptr : found->second;
    };
    data.construct = own(".cxx_construct");
    data.destruct = own(".cxx_destruct");
    classes()[cls->ro->name] = cls;
    realize(cls->isa, true);
}

} // namespace
} // namespace substitute::runtime

extern "C" {
char _objc_empty_cache[16];
char _objc_empty_vtable[16];

// The linker names the ends of each section.
extern objc_class_t* __start_objc_classlist[] __attribute__((weak));
extern objc_class_t* __stop_objc_classlist[] __attribute__((weak));
extern category_t* __start_objc_catlist[] __attribute__((weak));
extern category_t* __stop_objc_catlist[] __attribute__((weak));
extern const char* __start_objc_selrefs[] __attribute__((weak));
extern const char* __stop_objc_selrefs[] __attribute__((weak));
}

namespace substitute::runtime {
namespace {

void realize(objc_class_t* cls, bool meta)
{
    if (cls->cache && cls->cache != _objc_empty_cache)
        return;
    if (cls->superclass)
        realize(cls->superclass, meta && (cls->superclass->ro->flags & 1));
    auto* data = new ClassData;
    cls->cache = data;
    data->meta = meta;
    data->size = cls->ro->instanceSize;
    if (cls->superclass && !meta) {
        const ClassData& super = dataOf(cls->superclass);
        data->kind = super.kind;
        data->size += slideVariables(cls, super.size);
    }
    addMethods(cls, cls->ro->methods);
    if (!meta)
        realizeInstances(cls, *data);
}

void setKind(const char* name, Kind kind)
{
    if (const auto found = classes().find(name); found != classes().end())
        dataOf(found->second).kind = kind;
}

// Before every other constructor of the program, which may send messages.
__attribute__((constructor(101))) void load()
{
    g_standardError = dup(STDERR_FILENO);
    const std::lock_guard<HiddenLock> guard(lock());
    for (auto** cls = __start_objc_classlist; cls != __stop_objc_classlist; ++cls)
        realize(*cls, false);
    for (auto** one = __start_objc_catlist; one != __stop_objc_catlist; ++one) {
        addMethods((*one)->cls, (*one)->instanceMethods);
        addMethods((*one)->cls->isa, (*one)->classMethods);
    }
    for (const char** sel = __start_objc_selrefs; sel != __stop_objc_selrefs; ++sel)
        *sel = sel_registerName(*sel);
    setKind("RTConstantString", Kind::constant);
    setKind("RTStackBlock", Kind::stackBlock);
    setKind("RTMallocBlock", Kind::mallocBlock);
    setKind("RTGlobalBlock", Kind::globalBlock);
}

void construct(objc_class_t* cls, rt_id object)
{
    if (cls->superclass)
        construct(cls->superclass, object);
    if (const rt_IMP imp = dataOf(cls).construct)
        reinterpret_cast<rt_id (*)(rt_id, rt_SEL)>(imp)(object, ".cxx_construct");
}

} // namespace

thread_local int t_uncounted = 0;

bool countsObjects() { return t_uncounted == 0; }

HiddenLock& lock()
{
    static auto* one = new HiddenLock;
    return *one;
}

void HiddenLock::lock()
{
    const auto self = pthread_self();
    if (m_owned.load(std::memory_order_acquire) && pthread_equal(m_owner, self)) {
        ++m_depth;
        return;
    }
    while (m_owned.exchange(true, std::memory_order_acquire))
        sched_yield();
    m_owner = self;
    m_depth = 1;
}

void HiddenLock::unlock()
{
    if (--m_depth > 0)
        return;
    m_owner = {};
    m_owned.store(false, std::memory_order_release);
}

} // namespace substitute::runtime

using namespace substitute::runtime;

extern "C" {

void rt_fatal(const char* format, ...)
{
    char words[2000];
    std::va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(words, sizeof words, format, arguments);
    va_end(arguments);
    std::fprintf(stderr, "substitute of macOS: %s\n", words);
    if (!isStandardErrorOfStart()) { // a test has redirected it, to look at the log
        dup2(g_standardError, STDERR_FILENO);
        std::fprintf(stderr, "substitute of macOS: %s\n", words);
    }
    RT_TRACE();
    std::abort();
}

rt_SEL sel_registerName(const char* name)
{
    const std::lock_guard<HiddenLock> guard(lock());
    return selectors().insert(name).first->c_str();
}

const char* sel_getName(rt_SEL sel) { return sel; }

rt_IMP rt_find(objc_class_t* cls, rt_SEL sel)
{
    const std::lock_guard<HiddenLock> guard(lock());
    ClassData& data = dataOf(cls);
    if (const auto found = data.found.find(sel); found != data.found.end())
        return found->second;
    for (objc_class_t* at = cls; at; at = at->superclass) {
        const ClassData& one = dataOf(at);
        if (const auto found = one.methods.find(sel); found != one.methods.end())
            return data.found[sel] = found->second;
    }
    return nullptr;
}

rt_IMP rt_lookup(rt_id self, rt_SEL sel)
{
    objc_class_t* cls = self->isa; // AddressSanitizer reports a message to a dead object here
    if (const rt_IMP imp = rt_find(cls, sel))
        return imp;
    rt_fatal("%c[%s %s]: unrecognized selector sent to instance %p", dataOf(cls).meta ? '+' : '-', cls->ro->name, sel,
             static_cast<void*>(self));
}

rt_IMP rt_lookup_super(const objc_super_t* super, rt_SEL sel)
{
    if (const rt_IMP imp = rt_find(super->current->superclass, sel))
        return imp;
    rt_fatal("[super %s] of %s: unrecognized selector", sel, super->current->ro->name);
}

const char* class_getName(objc_class_t* cls) { return cls ? cls->ro->name : "nil"; }
objc_class_t* object_getClass(rt_id object) { return object ? object->isa : nullptr; }
objc_class_t* class_getSuperclass(objc_class_t* cls) { return cls ? cls->superclass : nullptr; }
bool rt_is_meta(objc_class_t* cls) { return dataOf(cls).meta; }

objc_class_t* rt_class_named(const char* name)
{
    const std::lock_guard<HiddenLock> guard(lock());
    const auto found = classes().find(name);
    return found == classes().end() ? nullptr : found->second;
}

void rt_count_objects(bool counted) { t_uncounted += counted ? -1 : 1; }

void rt_each_live_class(void (*call)(const char* name, long live, void* context), void* context)
{
    const std::lock_guard<HiddenLock> guard(lock());
    for (const auto& [name, cls] : classes())
        if (const long live = dataOf(cls).live)
            call(name.c_str(), live, context);
}

rt_id class_createInstance(objc_class_t* cls, std::size_t extra)
{
    if (dataOf(cls).meta)
        rt_fatal("alloc of a metaclass");
    void* memory = std::calloc(1, sizeof(Header) + dataOf(cls).size + extra);
    auto* header = new (memory) Header{{1}, kMagic, {0}, countsObjects()};
    auto* object = reinterpret_cast<rt_id>(header + 1);
    object->isa = cls;
    dataOf(cls).live += header->counted;
    construct(cls, object);
    return object;
}

void object_dispose(rt_id object)
{
    for (objc_class_t* cls = object->isa; cls; cls = cls->superclass)
        if (const rt_IMP imp = dataOf(cls).destruct)
            reinterpret_cast<void (*)(rt_id, rt_SEL)>(imp)(object, ".cxx_destruct");
    if (headerOf(object).weak)
        clearWeakReferences(object);
    dataOf(object->isa).live -= headerOf(object).counted;
    headerOf(object).magic = 0xdeadbeef;
    std::free(&headerOf(object));
}

} // extern "C"
