#include "hosts/sim/scenario/SimScenario.h"

#include "hosts/sim/scenario/session/SimFailure.h"
#include "hosts/sim/scenario/session/SimSetup.h"

namespace haloric {

namespace {

const std::vector<SimParameter>& members()
{
    static const std::vector<SimParameter> list{
        {"$schema", SimType::text, SimPresence::optional, "the schema file, for editors"},
        {"title", SimType::text, SimPresence::required, "the scenario in a few words"},
        {"story", SimType::text, SimPresence::optional, "what the user does and sees"},
        {"setup", SimType::object, SimPresence::optional, "the desktop at the start"},
        {"skipsUnknownNames", SimType::flag, SimPresence::optional,
         "steps that name something that is gone do nothing instead of failing"},
    };
    return list;
}

const std::vector<SimParameter>& stepMembers()
{
    static const std::vector<SimParameter> list{
        {"at", SimType::number, SimPresence::optional, "when, in seconds since the start", {}, kSimSeconds},
        {"after",
         SimType::number,
         SimPresence::optional,
         "how long after the step before, in seconds; 0",
         {},
         kSimSeconds},
        {"comment", SimType::text, SimPresence::optional, "for readers"},
    };
    return list;
}

SimStep stepFrom(const SimJson& json, const std::string& place)
{
    if (!json.is_object() || !json.contains("do") || !json["do"].is_string())
        throw SimScenarioError(place + ": expected an object with a verb under \"do\"");
    const auto name = json["do"].get<std::string>();
    SimStep step;
    step.place = place + " (" + name + ")";
    step.kind = findSimStepKind(name);
    if (!step.kind)
        throw SimScenarioError(place + ": unknown verb \"" + name + "\"");
    SimJson own = SimJson::object(); // what every step may have
    for (const auto& [key, value] : json.items()) {
        if (key == "at" || key == "after" || key == "comment")
            own[key] = value;
        else if (key != "do")
            step.arguments[key] = value;
    }
    checkArguments(own, stepMembers(), {}, step.place);
    checkArguments(step.arguments, step.kind->parameters, {}, step.place);
    if (own.contains("at"))
        step.at = own["at"].get<double>();
    step.after = own.value("after", 0.0);
    return step;
}

// A limit to the depth keeps functions that call themselves for each level from using up the stack.
SimJson jsonFrom(std::string_view text, const std::string& source)
{
    constexpr int kDeepest = 64;
    const auto checkDepth = [&](int depth, SimJson::parse_event_t, const SimJson&) {
        if (depth > kDeepest)
            throw SimScenarioError(source + ": nested deeper than " + std::to_string(kDeepest) + " levels");
        return true;
    };
    try {
        return SimJson::parse(text, checkDepth);
    } catch (const SimJson::exception& error) { // also a number beyond the range of a double
        throw SimScenarioError(source + ": not JSON: " + error.what());
    }
}

SimJson propertiesOf(const std::vector<SimParameter>& parameters)
{
    SimJson properties = SimJson::object();
    for (const SimParameter& parameter : parameters)
        properties[std::string(parameter.name)] = schemaOf(parameter);
    return properties;
}

SimJson schemaOfStep(const SimStepKind& kind)
{
    SimJson properties = propertiesOf(kind.parameters);
    properties.update(propertiesOf(stepMembers()));
    properties["do"] = {{"const", kind.name}};
    SimJson required = {"do"};
    for (const SimParameter& parameter : kind.parameters) {
        if (parameter.presence == SimPresence::required)
            required.push_back(parameter.name);
    }
    return {{"type", "object"},
            {"description", kind.help},
            {"properties", properties},
            {"required", required},
            {"additionalProperties", false}};
}

} // namespace

SimScenario SimScenario::parse(std::string_view text, const std::string& source)
{
    const SimJson json = jsonFrom(text, source);
    checkArguments(json, members(), {"steps"}, source);
    if (!json.contains("steps") || !json["steps"].is_array())
        throw SimScenarioError(source + ": \"steps\" is missing or not a list");
    SimScenario scenario;
    scenario.title = json["title"].get<std::string>();
    scenario.story = json.value("story", "");
    scenario.setup = json.value("setup", SimJson::object());
    scenario.skipsUnknownNames = json.value("skipsUnknownNames", false);
    SimSetup::fromJson(scenario.setup, source + ": setup");
    for (std::size_t i = 0; i < json["steps"].size(); ++i)
        scenario.steps.push_back(stepFrom(json["steps"][i], source + ": step " + std::to_string(i + 1)));
    return scenario;
}

SimJson SimScenario::toJson() const
{
    SimJson json{{"title", title}, {"setup", setup}, {"steps", SimJson::array()}};
    if (!story.empty())
        json["story"] = story;
    if (skipsUnknownNames)
        json["skipsUnknownNames"] = true;
    for (const SimStep& step : steps)
        json["steps"].push_back(step.toJson());
    return json;
}

std::string SimScenario::schemaText()
{
    constexpr std::string_view kPlaceholder = "\"stepKinds\"";
    SimJson outer = schema();
    SimJson& alternatives = outer["properties"]["steps"]["items"]["oneOf"];
    std::string kinds = "[";
    for (const SimJson& alternative : alternatives)
        kinds += (kinds.size() > 1 ? ",\n" : "\n") + alternative.dump();
    kinds += "\n]";
    alternatives = "stepKinds";
    std::string text = outer.dump(2);
    text.replace(text.find(kPlaceholder), kPlaceholder.size(), kinds);
    return text + "\n";
}

SimJson SimScenario::schema()
{
    SimJson properties = propertiesOf(members());
    properties["setup"] = {{"type", "object"},
                           {"description", "the desktop at the start"},
                           {"properties", propertiesOf(SimSetup::parameters())},
                           {"additionalProperties", false}};
    SimJson alternatives = SimJson::array();
    for (const SimStepKind* kind : allSimStepKinds())
        alternatives.push_back(schemaOfStep(*kind));
    properties["steps"] = {{"type", "array"}, {"items", {{"oneOf", alternatives}}}};
    return {{"$schema", "https://json-schema.org/draft/2020-12/schema"},
            {"title", "A scenario of Haloric's simulated desktop"},
            {"type", "object"},
            {"properties", properties},
            {"required", {"title", "steps"}},
            {"additionalProperties", false}};
}

} // namespace haloric
