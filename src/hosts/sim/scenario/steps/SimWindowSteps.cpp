#include "hosts/sim/scenario/session/SimFailure.h"
#include "hosts/sim/scenario/session/SimValues.h"
#include "hosts/sim/scenario/steps/SimPlayer.h"

namespace haloric {

namespace {

const SimParameter kWindow{"window", SimType::text, SimPresence::required, "the window's name"};

void move(SimPlayer& player, const SimJson& arguments)
{
    SimWindow& window = player.window(arguments);
    const Point to = simPointFrom(arguments["to"]);
    player.desktop().windows.setFrame(window, {to.x, to.y, window.frame.width, window.frame.height});
}

void resize(SimPlayer& player, const SimJson& arguments)
{
    SimWindow& window = player.window(arguments);
    const Size size = simSizeFrom(arguments["size"]);
    player.desktop().windows.setFrame(window, {window.frame.x, window.frame.y, size.width, size.height});
}

void drag(SimPlayer& player, const SimJson& arguments)
{
    const SimWindow& window = player.window(arguments);
    Rect target = window.frame;
    if (arguments.contains("to")) {
        const Point to = simPointFrom(arguments["to"]);
        target.x = to.x;
        target.y = to.y;
    }
    if (arguments.contains("size")) {
        const Size size = simSizeFrom(arguments["size"]);
        target.width = size.width;
        target.height = size.height;
    }
    const double rate = arguments.value("rate", SimPointer::kDefaultRate);
    const double seconds = arguments["seconds"].get<double>();
    player.desktop().pointer.drag(window, target, Seconds(seconds), rate);
}

void sendToSpace(SimPlayer& player, const SimJson& arguments)
{
    SimWindow& window = player.window(arguments);
    const SimSpaceID space = arguments["space"].get<int>();
    if (!player.desktop().spaces.exists(space) || window.fullScreenOrigin)
        throw SimUnknownName("the window cannot go to Space " + std::to_string(space));
    player.desktop().spaces.sendWindow(window, space);
}

// What changes how a window looks, or where it belongs.
std::vector<SimStepKind> propertyKinds()
{
    constexpr auto required = SimPresence::required;
    constexpr auto optional = SimPresence::optional;
    return {
        {"alpha",
         "change a window's opacity",
         {kWindow, {"value", SimType::number, required, "from 0 to 1"}},
         [](SimPlayer& player, const SimJson& a) {
             player.desktop().windows.setAlpha(player.window(a), a["value"].get<double>());
         }},
        {"layer",
         "change a window's layer: 0 is an ordinary window, 3 a floating panel",
         {kWindow, {"value", SimType::integer, required, "the layer"}},
         [](SimPlayer& player, const SimJson& a) {
             player.desktop().windows.setLayer(player.window(a), a["value"].get<int>());
         }},
        {"decoration",
         "change a window's title bar",
         {kWindow,
          {"value", SimType::text, required, "the kind", {"titled", "none", "client"}},
          {"titleBar", SimType::number, optional, "its height in points; as it was"}},
         [](SimPlayer& player, const SimJson& arguments) {
             SimWindow& window = player.window(arguments);
             player.desktop().windows.setDecoration(window, simDecorationFrom(arguments["value"].get<std::string>()),
                                                    arguments.value("titleBar", window.titleBarHeight));
         }},
        {"sendToSpace",
         "move a window to another Space without going there",
         {kWindow, {"space", SimType::integer, required, "the Space's number"}},
         sendToSpace},
    };
}

std::vector<SimStepKind> movementKinds()
{
    constexpr auto required = SimPresence::required;
    constexpr auto optional = SimPresence::optional;
    return {
        {"focus",
         "give a window the focus and bring its application to the front",
         {kWindow},
         [](SimPlayer& player, const SimJson& a) { player.desktop().windows.focus(player.window(a)); }},
        {"close",
         "close a window",
         {kWindow},
         [](SimPlayer& player, const SimJson& a) { player.desktop().windows.close(player.window(a)); }},
        {"move",
         "an application moves its window at once",
         {kWindow, {"to", SimType::point, required, "its new top left corner, in global space"}},
         move},
        {"resize",
         "an application resizes its window at once",
         {kWindow, {"size", SimType::size, required, "its new size"}},
         resize},
        {"drag",
         "drag a window by its title bar, or by its corner, with the left button held down; takes its time, while "
         "later steps go on",
         {kWindow,
          {"to", SimType::point, optional, "where its top left corner ends"},
          {"size", SimType::size, optional, "its size at the end"},
          {"seconds", SimType::number, required, "how long it takes", {}, kSimSeconds},
          {"rate", SimType::number, optional, "the mouse's reports a second; 125", {}, kSimRates}},
         drag},
        {"minimise",
         "minimise a window",
         {kWindow},
         [](SimPlayer& player, const SimJson& a) { player.desktop().windows.minimise(player.window(a)); }},
        {"restore",
         "bring a minimised window back, with the focus",
         {kWindow},
         [](SimPlayer& player, const SimJson& a) { player.desktop().windows.restore(player.window(a)); }},
        {"fullScreen",
         "make a window full screen, on a Space of its own",
         {kWindow},
         [](SimPlayer& player, const SimJson& a) { player.desktop().windows.enterFullScreen(player.window(a)); }},
        {"leaveFullScreen",
         "put a full-screen window back where it was",
         {kWindow},
         [](SimPlayer& player, const SimJson& a) { player.desktop().windows.leaveFullScreen(player.window(a)); }},
    };
}

} // namespace

const std::vector<SimStepKind>& simWindowSteps()
{
    static const std::vector<SimStepKind> kinds = [] {
        std::vector<SimStepKind> all = movementKinds();
        const std::vector<SimStepKind> properties = propertyKinds();
        all.insert(all.end(), properties.begin(), properties.end());
        return all;
    }();
    return kinds;
}

} // namespace haloric
