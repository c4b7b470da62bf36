#include "hosts/sim/scenario/session/SimFailure.h"
#include "hosts/sim/scenario/session/SimValues.h"
#include "hosts/sim/scenario/steps/SimPlayer.h"
#include "settings/SettingsCodec.h"

namespace haloric {

namespace {

void switchSpace(SimPlayer& player, const SimJson& arguments)
{
    const SimSpaceID space = arguments["to"].get<int>();
    if (!player.desktop().spaces.exists(space))
        throw SimUnknownName("there is no Space " + std::to_string(space));
    player.desktop().spaces.switchTo(space, player.desktop().pointer.draggedWindow());
}

void plug(SimPlayer& player, const SimJson& arguments)
{
    const SimScreen screen = simScreenFrom(arguments);
    for (const SimScreen& other : player.desktop().model.screens) {
        if (other.id == screen.id)
            throw SimUnknownName("there is a screen of that number already");
    }
    player.desktop().screens.plug(screen);
}

void changeSettings(SimPlayer& player, const SimJson& arguments)
{
    SettingsStore& store = player.session().settingsStore();
    const auto current = SettingsCodec::encode(store.settings());
    if (!current)
        throw SimScenarioError("the settings in force have no JSON form");
    SimJson json = SimJson::parse(*current);
    json.merge_patch(arguments["change"]);
    const auto changed = SettingsCodec::decode(json.dump());
    if (!changed)
        throw SimScenarioError("a setting has the wrong type");
    store.setSettings(*changed);
}

void setTrust(SimPlayer& player, const SimJson& arguments)
{
    player.desktop().model.trusted = arguments["value"].get<bool>();
}

void rest(SimPlayer& player, const SimJson& arguments)
{
    player.rest(Seconds(arguments.value("seconds", SimPlayer::kRest.count())));
}

void shiftWallClock(SimPlayer& player, const SimJson& arguments)
{
    SimRunLoop& runLoop = player.desktop().runLoop;
    runLoop.setWallClockOrigin(runLoop.wallClock() - runLoop.systemUptime() +
                               Seconds(arguments["seconds"].get<double>()));
}

} // namespace

const std::vector<SimStepKind>& simSystemSteps()
{
    constexpr auto required = SimPresence::required;
    constexpr auto optional = SimPresence::optional;
    const SimParameter screen = simScreenParameters().front();
    static const std::vector<SimStepKind> kinds{
        {"space",
         "switch to another Space; a window that is being dragged comes along",
         {{"to", SimType::integer, required, "the Space's number, from 1"}},
         switchSpace},
        {"plug", "attach a screen", simScreenParameters(), plug},
        {"unplug",
         "detach a screen; its windows move to the primary one",
         {screen},
         [](SimPlayer& player, const SimJson& a) { player.desktop().screens.unplug(player.screen(a).id); }},
        {"resizeScreen",
         "change a screen's size",
         {screen, {"size", SimType::size, required, "its new size in points"}},
         [](SimPlayer& player, const SimJson& a) {
             player.desktop().screens.resize(player.screen(a).id, simSizeFrom(a["size"]));
         }},
        {"trust",
         "grant or revoke Accessibility access",
         {{"value", SimType::flag, required, "whether it is granted"}},
         setTrust},
        {"settings",
         "change settings, as the settings window does",
         {{"change", SimType::object, required, "the settings that change, by their stored names"}},
         changeSettings},
        {"wait", "do nothing, for the time before it", {}, [](SimPlayer&, const SimJson&) {}},
        {"rest",
         "end all input, let time pass, and check that everything has come to rest as it should",
         {{"seconds", SimType::number, optional, "how long; 3", {}, kSimSeconds}},
         rest},
        {"wallClock",
         "set the calendar clock forth or back",
         {{"seconds", SimType::number, required, "by how much", {}, kSimIntegers}},
         shiftWallClock},
        {"terminate",
         "quit the program",
         {},
         [](SimPlayer& player, const SimJson&) { player.session().application.terminate(); }},
        {"mark",
         "count overlay moves, pulses, drawings, saves and queries from here on",
         {},
         [](SimPlayer& player, const SimJson&) { player.mark(); }},
    };
    return kinds;
}

} // namespace haloric
