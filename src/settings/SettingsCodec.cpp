#include "settings/SettingsCodec.h"

#include <nlohmann/json.hpp>

#include <cmath>

namespace haloric {
namespace {

using Json = nlohmann::json;
using OrderedJson = nlohmann::ordered_json; // keeps the fields in their order

// The one list of keys: calls visit(key, field) for each field, in order.
template <class Record, class Visit>
void forEachField(Record& record, Visit visit)
{
    visit("accent", record.accent);
    visit("cornerRadius", record.cornerRadius);
    visit("borderEnabled", record.borderEnabled);
    visit("borderColor", record.borderColor);
    visit("borderWidth", record.borderWidth);
    visit("glowEnabled", record.glowEnabled);
    visit("glowColor", record.glowColor);
    visit("glowRadius", record.glowRadius);
    visit("glowOpacity", record.glowOpacity);
    visit("tintEnabled", record.tintEnabled);
    visit("tintColor", record.tintColor);
    visit("tintOpacity", record.tintOpacity);
    visit("tintHeight", record.tintHeight);
    visit("dimEnabled", record.dimEnabled);
    visit("dimColor", record.dimColor);
    visit("dimOpacity", record.dimOpacity);
    visit("dimScope", record.dimScope);
    visit("dimApps", record.dimApps);
    visit("pulseEnabled", record.pulseEnabled);
    visit("hideWhenFullScreen", record.hideWhenFullScreen);
    visit("hotkeyEnabled", record.hotkeyEnabled);
}

struct NotEncodable {};

OrderedJson encoded(bool value) { return value; }
OrderedJson encoded(const std::vector<std::string>& value) { return value; }
OrderedJson encoded(DimScope value) { return std::string(rawValue(value)); }

OrderedJson encoded(double value)
{
    if (!std::isfinite(value))
        throw NotEncodable(); // the library would write null
    return value;
}

OrderedJson encoded(const RGBA& value)
{
    return {{"r", encoded(value.r)}, {"g", encoded(value.g)}, {"b", encoded(value.b)}, {"a", encoded(value.a)}};
}

OrderedJson encoded(const EffectColor& value)
{
    return {{"useAccent", encoded(value.useAccent)}, {"custom", encoded(value.custom)}};
}

// Each `decode` gives false, and may leave its output half written, when the value has the wrong type.
bool decode(const Json& value, bool& out)
{
    if (!value.is_boolean())
        return false;
    out = value.get<bool>();
    return true;
}

bool decode(const Json& value, double& out)
{
    if (!value.is_number())
        return false;
    out = value.get<double>();
    return true;
}

bool decode(const Json& value, std::string& out)
{
    if (!value.is_string())
        return false;
    out = value.get<std::string>();
    return true;
}

bool decode(const Json& value, RGBA& out);

template <class Field>
bool decodeMember(const Json& object, const char* key, Field& out)
{
    const auto member = object.find(key); // the end for anything but an object
    return member != object.end() && decode(*member, out);
}

bool decode(const Json& value, RGBA& out)
{
    return decodeMember(value, "r", out.r) && decodeMember(value, "g", out.g) && decodeMember(value, "b", out.b) &&
           decodeMember(value, "a", out.a);
}

bool decode(const Json& value, EffectColor& out)
{
    return decodeMember(value, "useAccent", out.useAccent) && decodeMember(value, "custom", out.custom);
}

bool decode(const Json& value, DimScope& out)
{
    std::string raw;
    if (!decode(value, raw))
        return false;
    const auto scope = dimScopeFromRawValue(raw);
    out = scope.value_or(out);
    return scope.has_value();
}

bool decode(const Json& value, std::vector<std::string>& out)
{
    if (!value.is_array())
        return false;
    out.resize(value.size());
    for (std::size_t index = 0; index < out.size(); ++index)
        if (!decode(value[index], out[index]))
            return false;
    return true;
}

} // namespace

std::optional<std::string> SettingsCodec::encode(const Settings& settings)
{
    try {
        OrderedJson object = OrderedJson::object();
        forEachField(settings, [&](const char* key, const auto& field) { object[key] = encoded(field); });
        return object.dump();
    } catch (const NotEncodable&) {
        return std::nullopt;
    } catch (const OrderedJson::type_error&) { // text that is not UTF-8
        return std::nullopt;
    }
}

std::optional<Settings> SettingsCodec::decode(std::string_view bytes)
{
    // The parser takes a zero byte for the end of its input and would not look at what follows.
    if (bytes.find('\0') != std::string_view::npos)
        return std::nullopt;
    const Json object = Json::parse(bytes.begin(), bytes.end(), nullptr, false);
    if (!object.is_object())
        return std::nullopt;
    Settings settings = Settings::defaults();
    bool valid = true;
    forEachField(settings, [&](const char* key, auto& field) {
        const auto member = object.find(key);
        if (valid && member != object.end() && !member->is_null())
            valid = haloric::decode(*member, field);
    });
    return valid ? std::optional(settings) : std::nullopt;
}

} // namespace haloric
