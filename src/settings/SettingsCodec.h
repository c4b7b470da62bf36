// The stored form of the settings: one JSON object with the field names as its keys. Stateless; any thread.
#pragma once

#include "settings/Settings.h"

#include <optional>
#include <string>
#include <string_view>

namespace haloric {

struct SettingsCodec {
    // All keys, in the order of the fields, on one line. Absent when the record has no JSON form: a number that is not
    // finite, or a bundle identifier that is not UTF-8.
    static std::optional<std::string> encode(const Settings& settings);

    // Tolerant by key, strict by value: a key that is missing or null keeps its default, unknown keys are ignored,
    // but one value of the wrong type (also inside a colour, where every member is required) makes the whole record
    // absent. So does everything that is not a JSON object, and, under an unknown key as well, what the parser has no
    // value for: a number beyond the range of a double, or half of a surrogate pair.
    static std::optional<Settings> decode(std::string_view bytes);
};

} // namespace haloric
