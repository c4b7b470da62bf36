// The time of the substitute.
#pragma once

namespace substitute {

// Seconds of a clock that only rises. Any thread.
double now();

} // namespace substitute
