// JSON as scenarios use it.
#pragma once

#include <nlohmann/json.hpp>

namespace haloric {

using SimJson = nlohmann::json;

} // namespace haloric
