// One argument that a kind of step takes, or one member of a scenario's setup: its name, its type, and what it means.
// The parser checks scenarios against these and the schema is made from them.
#pragma once

#include "hosts/sim/scenario/session/SimJson.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace haloric {

enum class SimType {
    text,
    number,
    integer,
    flag,
    point, // [x, y]
    size,  // [width, height]
    rect,  // [x, y, width, height]
    texts, // a list of texts
    integers,
    object,
    screens, // a list of objects with simScreenParameters()
};

enum class SimPresence { required, optional };
inline constexpr auto kRequired = SimPresence::required; // short, for the tables of steps
inline constexpr auto kOptional = SimPresence::optional;

// The least and the greatest permitted number.
struct SimRange {
    double least = 0;
    double most = 0;
};
inline constexpr SimRange kSimPoints{-1e6, 1e6};   // positions and sizes, and numbers without a range of their own
inline constexpr SimRange kSimIntegers{-1e9, 1e9}; // integers without a range of their own
inline constexpr SimRange kSimSeconds{0, 86'400};  // durations; a scenario lasts no longer either
inline constexpr SimRange kSimRates{0.1, 10'000};  // a second
inline constexpr SimRange kSimUnsigned{0, 4'294'967'295};

struct SimParameter {
    std::string_view name;
    SimType type = SimType::text;
    SimPresence presence = SimPresence::required;
    std::string_view help;
    std::vector<std::string_view> choices{}; // texts only; empty: any text
    std::optional<SimRange> range{};         // numbers and integers only
};

// What describes a screen, its number first: in a setup's list of screens and for the step that plugs one in.
const std::vector<SimParameter>& simScreenParameters();

// Throws SimScenarioError, with `place` in its text, when `arguments` is not an object with exactly these parameters,
// each within its range. `others` are keys that the caller reads itself.
void checkArguments(const SimJson& arguments, const std::vector<SimParameter>& parameters,
                    const std::vector<std::string_view>& others, const std::string& place);

// The JSON schema of one parameter.
SimJson schemaOf(const SimParameter& parameter);

} // namespace haloric
