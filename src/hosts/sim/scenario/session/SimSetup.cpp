#include "hosts/sim/scenario/session/SimSetup.h"

#include "hosts/sim/scenario/session/SimFailure.h"
#include "hosts/sim/scenario/session/SimValues.h"

namespace haloric {

const std::vector<SimParameter>& SimSetup::parameters()
{
    constexpr auto optional = SimPresence::optional;
    static const std::vector<SimParameter> list{
        {"version", SimType::integer, optional, "the system's major version, 13 or 14", {}, SimRange{10, 100}},
        {"trusted", SimType::flag, optional, "whether Accessibility access is granted; true"},
        {"spaces", SimType::integer, optional, "how many ordinary Spaces there are; 3", {}, SimRange{1, 100}},
        {"screens", SimType::screens, optional, "the screens, the primary one (at 0, 0) first; one of 1440 x 900"},
        {"environment", SimType::object, optional, "environment variables, texts"},
        {"settings", SimType::object, optional, "stored settings; what is left out has its default"},
        {"storedSettings", SimType::text, optional, "stored settings as raw text, valid or not"},
        {"alertAnswers", SimType::integers, optional, "the buttons that alerts are answered with, from 0"},
        {"bundlePath", SimType::text, optional, "where the program is installed"},
        {"libraryMissing", SimType::flag, optional, "the window server's private library cannot be opened"},
        {"missingEntries", SimType::texts, optional, "symbols that the private library lacks"},
        {"eventTapRefused", SimType::flag, optional, "the program may not watch keys"},
        {"videoLinksFail", SimType::flag, optional, "version 13: no video display link can be made"},
        {"jitterSeed", SimType::integer, optional, "seed of the notifications' delays"},
        {"jitter", SimType::number, optional, "the longest delay of a notification, in seconds; 0", {}, kSimSeconds},
    };
    return list;
}

SimSetup SimSetup::fromJson(const SimJson& json, const std::string& place)
{
    checkArguments(json, parameters(), {}, place);
    SimSetup setup;
    setup.systemVersion = json.value("version", setup.systemVersion);
    setup.trusted = json.value("trusted", setup.trusted);
    setup.spaces = json.value("spaces", setup.spaces);
    if (json.contains("screens")) {
        setup.screens.clear();
        for (const SimJson& screen : json["screens"])
            setup.screens.push_back(simScreenFrom(screen));
    }
    if (json.contains("environment")) {
        for (const auto& [name, value] : json["environment"].items()) {
            if (!value.is_string())
                throw SimScenarioError(place + ", \"environment\": \"" + name + "\" is not a text");
            setup.environment[name] = value.get<std::string>();
        }
    }
    if (json.contains("settings"))
        setup.storedSettings = json["settings"].dump();
    setup.storedSettings = json.value("storedSettings", setup.storedSettings);
    setup.alertAnswers = json.value("alertAnswers", setup.alertAnswers);
    setup.bundlePath = json.value("bundlePath", setup.bundlePath);
    setup.faults.libraryMissing = json.value("libraryMissing", false);
    for (const std::string& symbol : json.value("missingEntries", std::vector<std::string>{}))
        setup.faults.missingEntries.insert(symbol);
    setup.faults.eventTapRefused = json.value("eventTapRefused", false);
    setup.faults.videoLinksFail = json.value("videoLinksFail", false);
    setup.jitterSeed = json.value("jitterSeed", std::uint64_t{0});
    setup.jitterSeconds = json.value("jitter", 0.0);
    return setup;
}

} // namespace haloric
