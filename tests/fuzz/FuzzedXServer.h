// An X server made of the bytes of an input: it answers the requests of X11ClientReader and X11Atoms in the process,
// without a connection, with any windows, properties and geometry. It replaces functions of libxcb by others of the
// same name, so a program that links it has no other X server.
#pragma once

#include "fuzz/Fuzzing.h"

#include <xcb/xcb.h>

namespace haloric::FuzzedXServer {

inline constexpr xcb_window_t kRoot = 0x1D5;

// What stands for the connection; only the replaced functions may use it.
xcb_connection_t* connection();

// Replies come from `input`, which must outlive them, until the next call.
void answerFrom(FuzzInput& input);

} // namespace haloric::FuzzedXServer
