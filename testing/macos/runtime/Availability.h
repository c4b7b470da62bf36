// Included before every source in Objective-C++. `@available(macOS 14.0, *)` becomes @(text or null), a question that
// is answered when the program runs, so that one build runs the ways of every version of macOS.
#pragma once

// Null if the version that the program runs as is older: SUBSTITUTE_MACOS_VERSION of the environment, or 15.
extern "C" const char* substitute_available(const char* question);

#define available(...) (substitute_available(#__VA_ARGS__))
