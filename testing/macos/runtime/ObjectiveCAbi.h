// The metadata that clang emits for Apple's non-fragile Objective-C ABI
// (-fobjc-runtime=macosx), and the entry points of the runtime that the
// stand-ins use. Any thread.
#pragma once

#include <cstddef>
#include <cstdint>

extern "C" {

struct objc_class_t;
struct objc_object_t {
    objc_class_t* isa;
};
using rt_id = objc_object_t*;
using rt_SEL = const char*; // unique: equal names have one address
using rt_IMP = void (*)();

struct method_t {
    const char* name;
    const char* types;
    rt_IMP imp;
};
struct method_list_t {
    std::uint32_t entsize, count;
    method_t list[1];
};
struct ivar_t {
    std::int32_t* offset;
    const char* name;
    const char* type;
    std::uint32_t alignment, size; // the alignment as an exponent of 2
};
struct ivar_list_t {
    std::uint32_t entsize, count;
    ivar_t list[1];
};
struct protocol_list_t;
struct class_ro_t {
    std::uint32_t flags, instanceStart, instanceSize, reserved;
    const std::uint8_t* ivarLayout;
    const char* name;
    method_list_t* methods;
    protocol_list_t* protocols;
    ivar_list_t* ivars;
    const std::uint8_t* weakIvarLayout;
    void* properties;
};
struct objc_class_t {
    objc_class_t* isa;
    objc_class_t* superclass;
    void* cache; // the runtime's own data, once the class is realized
    void* vtable;
    const class_ro_t* ro;
};
struct category_t {
    const char* name;
    objc_class_t* cls;
    method_list_t *instanceMethods, *classMethods;
    protocol_list_t* protocols;
    void* properties;
};
struct objc_super_t {
    rt_id receiver;
    objc_class_t* current;
};

// The implementation of a message. Ends the program if there is none.
rt_IMP rt_lookup(rt_id self, rt_SEL sel);
rt_IMP rt_lookup_super(const objc_super_t* super, rt_SEL sel);

// Null if the class and its superclasses do not implement it.
rt_IMP rt_find(objc_class_t* cls, rt_SEL sel);

#ifndef __OBJC__ // objc/objc.h declares them with its own types
rt_SEL sel_registerName(const char* name);
const char* class_getName(objc_class_t* cls);
objc_class_t* object_getClass(rt_id object);
#endif
rt_id class_createInstance(objc_class_t* cls, std::size_t extra);
void object_dispose(rt_id object);
objc_class_t* rt_class_named(const char* name); // null if there is none
bool rt_is_meta(objc_class_t* cls);
std::size_t rt_retain_count(rt_id object);

// Each class with its instances that were made and not yet disposed of; blocks
// that were copied onto the heap are instances of their class. The classes are
// not ordered.
void rt_each_live_class(void (*call)(const char* name, long live, void* context), void* context);

// Whether objects that are made on this thread from now on are counted. Calls
// may be nested.
void rt_count_objects(bool counted);

// Writes the text and a stack trace to the standard error that the process
// started with, and aborts.
[[noreturn]] void rt_fatal(const char* format, ...) __attribute__((format(printf, 1, 2)));

} // extern "C"
