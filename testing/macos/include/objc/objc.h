// The basic types of Objective-C.
#pragma once
#include <stddef.h>
typedef struct objc_class* Class;
struct objc_object {
    Class isa;
};
typedef struct objc_object* id;
typedef struct objc_selector* SEL;
typedef void (*IMP)(void);
typedef signed char BOOL;
#define OBJC_BOOL_DEFINED 1
#define YES __objc_yes
#define NO __objc_no
#define nil nullptr
#define Nil nullptr
#define __strong_in
#ifndef __unsafe_unretained
#endif
#ifdef __cplusplus
extern "C" {
#endif
extern SEL sel_registerName(const char* str);
extern const char* sel_getName(SEL sel);
extern const char* class_getName(Class cls);
extern Class object_getClass(id object);
extern Class class_getSuperclass(Class cls);
#ifdef __cplusplus
}
#endif
#define __unused __attribute__((unused)) // from <sys/cdefs.h> on Darwin
