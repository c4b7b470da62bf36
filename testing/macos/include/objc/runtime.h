// The types of the runtime that the declarations of the frameworks name.
#pragma once
#include <objc/objc.h>
typedef struct objc_method* Method;
typedef struct objc_ivar* Ivar;
typedef struct objc_category* Category;
typedef struct objc_property* objc_property_t;
#ifdef __OBJC__
@class Protocol;
#endif
