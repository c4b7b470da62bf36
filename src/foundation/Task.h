// A piece of work to be run later, once or repeatedly.
#pragma once

#include <functional>

namespace haloric {

using Task = std::function<void()>;

} // namespace haloric
