#include "hosts/sim/scenario/session/SimFailure.h"
#include "hosts/sim/scenario/session/SimValues.h"
#include "hosts/sim/scenario/steps/SimPlayer.h"

namespace haloric {

namespace {

const SimParameter kApp{"app", SimType::text, SimPresence::required, "the application's name"};

void launch(SimPlayer& player, const SimJson& arguments)
{
    const auto name = arguments["app"].get<std::string>();
    if (player.desktop().model.appNamed(name))
        throw SimUnknownName("\"" + name + "\" runs already");
    std::optional<std::string> bundleID = "org.example." + name;
    if (arguments.contains("bundleID"))
        bundleID = arguments["bundleID"].get<std::string>();
    if (bundleID->empty())
        bundleID.reset();
    player.desktop().applications.launch(name, bundleID).ready = arguments.value("ready", true);
}

void open(SimPlayer& player, const SimJson& arguments)
{
    SimApp& app = player.app(arguments);
    SimWindow window;
    window.name = arguments["window"].get<std::string>();
    if (player.desktop().model.windows.named(window.name))
        throw SimUnknownName("there is a window \"" + window.name + "\" already");
    window.frame = simRectFrom(arguments["frame"]);
    window.decoration = simDecorationFrom(arguments.value("decoration", "titled"));
    window.titleBarHeight = arguments.value("titleBar", window.titleBarHeight);
    window.layer = arguments.value("layer", window.layer);
    window.alpha = arguments.value("alpha", window.alpha);
    window.role = arguments.value("role", window.role);
    window.numberUntold = arguments.value("numberUntold", false);
    player.desktop().windows.open(app, std::move(window));
}

} // namespace

const std::vector<SimStepKind>& simApplicationSteps()
{
    static const std::vector<SimStepKind> kinds{
        {"launch",
         "start an application without windows; it comes to the front",
         {kApp,
          {"bundleID", SimType::text, kOptional, "its bundle identifier; org.example.<name>; empty: none"},
          {"ready", SimType::flag, kOptional, "whether notifications can be added to its observers; true"}},
         launch},
        {"open",
         "open a window, which its application focuses; the application \"Haloric\" is the program itself",
         {kApp,
          {"window", SimType::text, SimPresence::required, "the window's name, one of its kind on the desktop"},
          {"frame", SimType::rect, SimPresence::required, "where, in global space"},
          {"decoration", SimType::text, kOptional, "its title bar; titled", {"titled", "none", "client"}},
          {"titleBar", SimType::number, kOptional, "the title bar's height in points; 28"},
          {"layer", SimType::integer, kOptional, "its layer; 0"},
          {"alpha", SimType::number, kOptional, "its opacity; 1"},
          {"role", SimType::text, kOptional, "its Accessibility role; AXWindow"},
          {"numberUntold", SimType::flag, kOptional, "Accessibility cannot tell its window number"}},
         open},
        {"quit",
         "end an application",
         {kApp},
         [](SimPlayer& player, const SimJson& arguments) {
             player.desktop().applications.quit(player.app(arguments));
         }},
        {"activate",
         "bring an application to the front",
         {kApp},
         [](SimPlayer& player, const SimJson& arguments) {
             player.desktop().applications.activate(player.app(arguments));
         }},
        {"hide",
         "hide an application",
         {kApp},
         [](SimPlayer& player, const SimJson& arguments) {
             player.desktop().applications.hide(player.app(arguments));
         }},
        {"show",
         "show a hidden application",
         {kApp},
         [](SimPlayer& player, const SimJson& arguments) {
             player.desktop().applications.show(player.app(arguments));
         }},
        {"responsive",
         "make an application hang, or answer again",
         {kApp, {"value", SimType::flag, SimPresence::required, "whether it answers"}},
         [](SimPlayer& player, const SimJson& arguments) {
             player.desktop().applications.setResponsive(player.app(arguments), arguments["value"].get<bool>());
         }},
        {"observable",
         "let observers of an application be made, or not",
         {kApp, {"value", SimType::flag, SimPresence::required, "whether they can be made"}},
         [](SimPlayer& player, const SimJson& arguments) {
             player.app(arguments).observable = arguments["value"].get<bool>();
         }},
        {"ready",
         "let observers of an application get notifications, or not yet, as while it starts",
         {kApp, {"value", SimType::flag, SimPresence::required, "whether notifications can be added"}},
         [](SimPlayer& player, const SimJson& arguments) {
             player.app(arguments).ready = arguments["value"].get<bool>();
         }},
    };
    return kinds;
}

} // namespace haloric
