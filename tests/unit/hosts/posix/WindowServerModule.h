// What tests ask of the window server module beside its eight entries. The functions are found by name in the opened
// library; any thread.
#pragma once

#include <cstdint>

extern "C" {

struct WindowServerModuleState {
    std::int32_t registeredEvents; // how many
    std::int32_t requestedWindows;
    std::int32_t transactionsCommitted;
    double windowX, windowY; // of window 42, which is 400 by 300
    std::int32_t boundsWereZeroed;
    std::int32_t contextsWereNull;
};

using ModuleReset = void (*)();
using ModuleFail = void (*)(const char* entry, std::int32_t result); // from now on, until the reset
using ModuleState = WindowServerModuleState (*)();
using ModuleNotify = void (*)(std::uint32_t event, std::uint32_t window);

// Starts a thread of the library's own that sends `count` movements of the windows 42 and 43 in turn, and waits for
// its end.
using ModuleStartBurst = void (*)(std::int32_t count);
using ModuleJoinBurst = void (*)();

} // extern "C"
