// A window manager and a compositor, as the parameter of a test.
#pragma once

#include "testing/x11/X11Session.h"

#include <ostream>
#include <string>

namespace haloric {

struct Pairing {
    const char* name; // part of the test's name
    WindowManager windowManager;
    Compositor compositor;
};

inline void PrintTo(const Pairing& pairing, std::ostream* out) { *out << pairing.name; }

// The name of a parameter, from the test framework's description of it.
inline constexpr auto nameOf = [](const auto& info) { return std::string(info.param.name); };

} // namespace haloric
