#include "hosts/sim/scenario/session/SimParameter.h"

#include "hosts/sim/scenario/session/SimFailure.h"

#include <algorithm>
#include <cstdio>

namespace haloric {

namespace {

bool isListOfNumbers(const SimJson& value, std::size_t length)
{
    return value.is_array() && value.size() == length &&
           std::ranges::all_of(value, [](const SimJson& item) { return item.is_number(); });
}

bool hasType(const SimJson& value, SimType type)
{
    switch (type) {
    case SimType::text:
        return value.is_string();
    case SimType::number:
        return value.is_number();
    case SimType::integer:
        return value.is_number_integer();
    case SimType::flag:
        return value.is_boolean();
    case SimType::point:
    case SimType::size:
        return isListOfNumbers(value, 2);
    case SimType::rect:
        return isListOfNumbers(value, 4);
    case SimType::texts:
        return value.is_array() && std::ranges::all_of(value, [](const SimJson& item) { return item.is_string(); });
    case SimType::integers:
        return value.is_array() &&
               std::ranges::all_of(value, [](const SimJson& item) { return item.is_number_integer(); });
    case SimType::object:
        return value.is_object();
    case SimType::screens:
        return value.is_array();
    }
    return false;
}

std::string_view describe(SimType type)
{
    switch (type) {
    case SimType::text:
        return "a text";
    case SimType::number:
        return "a number";
    case SimType::integer:
        return "an integer";
    case SimType::flag:
        return "true or false";
    case SimType::point:
        return "a point [x, y]";
    case SimType::size:
        return "a size [width, height]";
    case SimType::rect:
        return "a rectangle [x, y, width, height]";
    case SimType::texts:
        return "a list of texts";
    case SimType::integers:
        return "a list of integers";
    case SimType::object:
        return "an object";
    case SimType::screens:
        return "a list of screens";
    }
    return "";
}

SimRange rangeOf(const SimParameter& parameter)
{
    const bool isInteger = parameter.type == SimType::integer || parameter.type == SimType::integers;
    return parameter.range.value_or(isInteger ? kSimIntegers : kSimPoints);
}

// Numbers, and lists of them; other values have no range.
bool isWithin(const SimJson& value, const SimRange& range)
{
    if (value.is_array())
        return std::ranges::all_of(value, [&](const SimJson& item) { return isWithin(item, range); });
    return !value.is_number() || (value.get<double>() >= range.least && value.get<double>() <= range.most);
}

std::string describe(const SimRange& range)
{
    char text[80];
    std::snprintf(text, sizeof text, "from %.10g to %.10g", range.least, range.most);
    return text;
}

SimJson listSchema(const SimJson& item) { return {{"type", "array"}, {"items", item}}; }

SimJson numbersSchema(std::size_t length)
{
    SimJson schema = listSchema({{"type", "number"}});
    schema["minItems"] = length;
    schema["maxItems"] = length;
    return schema;
}

SimJson schemaOf(SimType type)
{
    switch (type) {
    case SimType::text:
        return {{"type", "string"}};
    case SimType::number:
        return {{"type", "number"}};
    case SimType::integer:
        return {{"type", "integer"}};
    case SimType::flag:
        return {{"type", "boolean"}};
    case SimType::point:
    case SimType::size:
        return numbersSchema(2);
    case SimType::rect:
        return numbersSchema(4);
    case SimType::texts:
        return listSchema({{"type", "string"}});
    case SimType::integers:
        return listSchema({{"type", "integer"}});
    case SimType::object:
        return {{"type", "object"}};
    case SimType::screens:
        return listSchema({{"type", "object"}});
    }
    return SimJson::object();
}

void checkValue(const SimJson& value, const SimParameter& parameter, const std::string& place)
{
    const std::string where = place + ", \"" + std::string(parameter.name) + "\": ";
    if (!hasType(value, parameter.type))
        throw SimScenarioError(where + "expected " + std::string(describe(parameter.type)) + ", found " + value.dump());
    if (!parameter.choices.empty() &&
        std::ranges::find(parameter.choices, value.get<std::string>()) == parameter.choices.end())
        throw SimScenarioError(where + "unknown value " + value.dump());
    if (const SimRange range = rangeOf(parameter); !isWithin(value, range))
        throw SimScenarioError(where + "expected numbers " + describe(range) + ", found " + value.dump());
    if (parameter.type == SimType::screens) {
        for (std::size_t i = 0; i < value.size(); ++i)
            checkArguments(value[i], simScreenParameters(), {}, where + "screen " + std::to_string(i + 1));
    }
}

} // namespace

const std::vector<SimParameter>& simScreenParameters()
{
    static const std::vector<SimParameter> list{
        {"screen", SimType::integer, SimPresence::required, "the screen's display number", {}, kSimUnsigned},
        {"frame", SimType::rect, SimPresence::required, "its frame in global space"},
        {"rate", SimType::number, SimPresence::optional, "its refresh rate; 60", {}, kSimRates},
        {"scale", SimType::number, SimPresence::optional, "pixels a point; 2", {}, SimRange{0.5, 8}},
    };
    return list;
}

void checkArguments(const SimJson& arguments, const std::vector<SimParameter>& parameters,
                    const std::vector<std::string_view>& others, const std::string& place)
{
    if (!arguments.is_object())
        throw SimScenarioError(place + ": expected an object, found " + arguments.dump());
    for (const auto& [key, value] : arguments.items()) {
        if (std::ranges::find(others, key) != others.end())
            continue;
        const auto found = std::ranges::find(parameters, std::string_view(key), &SimParameter::name);
        if (found == parameters.end())
            throw SimScenarioError(place + ": unknown member \"" + key + "\"");
        checkValue(value, *found, place);
    }
    for (const SimParameter& parameter : parameters) {
        if (parameter.presence == SimPresence::required && !arguments.contains(parameter.name))
            throw SimScenarioError(place + ": \"" + std::string(parameter.name) + "\" is missing");
    }
}

SimJson schemaOf(const SimParameter& parameter)
{
    SimJson schema = schemaOf(parameter.type);
    schema["description"] = parameter.help;
    if (!parameter.choices.empty())
        schema["enum"] = parameter.choices;
    if (parameter.type == SimType::number || parameter.type == SimType::integer) {
        const SimRange range = rangeOf(parameter);
        schema["minimum"] = range.least;
        schema["maximum"] = range.most;
    }
    return schema;
}

} // namespace haloric
