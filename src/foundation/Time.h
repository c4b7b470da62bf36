// The unit of every interval and instant that crosses an interface.
#pragma once

#include <chrono>

namespace haloric {

using Seconds = std::chrono::duration<double>;

} // namespace haloric
