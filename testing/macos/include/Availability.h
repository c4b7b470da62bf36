// Availability of declarations: they are all there, and the program asks when it runs (runtime/Availability.h).
#pragma once
#define API_AVAILABLE(...)
#define API_UNAVAILABLE(...)
#define API_DEPRECATED(...)
#define API_DEPRECATED_WITH_REPLACEMENT(...)
#define __OSX_AVAILABLE_STARTING(a, b)
#define __MAC_OS_X_VERSION_MIN_REQUIRED 130000
#define __MAC_OS_X_VERSION_MAX_ALLOWED 150000
