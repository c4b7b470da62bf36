// The integers of Objective-C.
#pragma once
#include <objc/objc.h>
typedef long NSInteger;
typedef unsigned long NSUInteger;
#define NSIntegerMax __LONG_MAX__
#define NSIntegerMin (-__LONG_MAX__ - 1)
#define NSUIntegerMax (2UL * __LONG_MAX__ + 1)
