// How deep the brackets of a JSON text are nested. Pure; any thread.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace haloric {

// The deepest level: 0 for "1", 1 for "{}", 2 for "[{}]". Brackets inside strings do not count. Takes linear time for
// any bytes, also for what is no JSON.
inline std::size_t jsonNesting(std::string_view bytes)
{
    std::size_t level = 0;
    std::size_t deepest = 0;
    bool isInString = false;
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        const char character = bytes[at];
        if (isInString && character == '\\')
            ++at; // what is escaped does not end the string
        else if (character == '"')
            isInString = !isInString;
        else if (!isInString && (character == '{' || character == '['))
            deepest = std::max(deepest, ++level);
        else if (!isInString && (character == '}' || character == ']') && level > 0)
            --level;
    }
    return deepest;
}

} // namespace haloric
