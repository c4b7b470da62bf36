#include "hosts/sim/scenario/session/SimFailure.h"
#include "hosts/sim/scenario/steps/SimPlayer.h"

#include <array>

namespace haloric {

namespace {

const SimParameter kButton{"button", SimType::text, kRequired, "which", {"left", "right", "other"}};

SimButton buttonFrom(const SimJson& arguments)
{
    const auto name = arguments["button"].get<std::string>();
    if (name == "left")
        return SimButton::left;
    return name == "right" ? SimButton::right : SimButton::other;
}

void pressKey(SimPlayer& player, const SimJson& arguments)
{
    std::uint64_t flags = 0;
    for (const std::string& modifier : arguments.value("modifiers", std::vector<std::string>{})) {
        if (modifier == "shift")
            flags |= ModifierFlags::kShift;
        else if (modifier == "control")
            flags |= ModifierFlags::kControl;
        else if (modifier == "option")
            flags |= ModifierFlags::kOption;
        else if (modifier == "command")
            flags |= ModifierFlags::kCommand;
    }
    player.desktop().keyboard.press(arguments["code"].get<std::int64_t>(), flags);
}

void click(SimPlayer& player, const SimJson& arguments)
{
    SimDesktop& desktop = player.desktop();
    SimWindow& window = player.window(arguments);
    desktop.pointer.press(SimButton::left);
    desktop.windows.focus(window);
    desktop.pointer.release(SimButton::left);
}

void chooseMenuItem(SimPlayer& player, const SimJson& arguments)
{
    const auto title = arguments["title"].get<std::string>();
    if (!player.session().statusItems.choose(title))
        throw SimUnknownName("the menu has no item \"" + title + "\" that can be chosen");
}

void changeControl(SimPlayer& player, const SimJson& arguments)
{
    SimFormWindows::Value value;
    if (arguments.contains("on"))
        value = arguments["on"].get<bool>();
    else if (arguments.contains("value"))
        value = arguments["value"].get<double>();
    else if (arguments.contains("option"))
        value = arguments["option"].get<std::string>();
    const auto id = arguments["id"].get<std::string>();
    if (!player.session().changeControl(id, value))
        throw SimUnknownName("the settings window shows no control \"" + id + "\" that takes this");
}

} // namespace

const std::vector<SimStepKind>& simInputSteps()
{
    static const std::vector<SimStepKind> kinds{
        {"press",
         "press a mouse button and hold it",
         {kButton},
         [](SimPlayer& player, const SimJson& a) { player.desktop().pointer.press(buttonFrom(a)); }},
        {"release",
         "release a mouse button",
         {kButton},
         [](SimPlayer& player, const SimJson& a) { player.desktop().pointer.release(buttonFrom(a)); }},
        {"click",
         "click a window, which gives it the focus",
         {{"window", SimType::text, kRequired, "the window's name"}},
         click},
        {"key",
         "press a key",
         {{"code", SimType::integer, kRequired, "its virtual key number"},
          {"modifiers", SimType::texts, kOptional, "any of shift, control, option, command"}},
         pressKey},
        {"menu",
         "choose an item of the program's menu",
         {{"title", SimType::text, kRequired, "the item's title, also in a submenu"}},
         chooseMenuItem},
        {"control",
         "use a control of the settings window",
         {{"id", SimType::text, kRequired, "which"},
          {"on", SimType::flag, kOptional, "a switch's new state"},
          {"value", SimType::number, kOptional, "a slider's new value"},
          {"option", SimType::text, kOptional, "what is chosen in a list"}},
         changeControl},
        {"reopen",
         "open the application again while it runs",
         {},
         [](SimPlayer& player, const SimJson&) { player.session().reopen(); }},
        {"screenshot",
         "open the system's screenshot interface by Command-Shift-4",
         {},
         [](SimPlayer& player, const SimJson&) {
             player.desktop().keyboard.press(SimKeyboard::kDigit4, ModifierFlags::kCommand | ModifierFlags::kShift);
         }},
        {"escape",
         "press Escape",
         {},
         [](SimPlayer& player, const SimJson&) { player.desktop().keyboard.press(SimKeyboard::kEscape, 0); }},
        {"disableTap",
         "the system takes the program's event tap out of service",
         {{"reason", SimType::text, kRequired, "why", {"timeout", "userInput"}}},
         [](SimPlayer& player, const SimJson& a) {
             player.desktop().keyboard.disableTaps(a["reason"] == "timeout" ? EventType::tapDisabledByTimeout
                                                                            : EventType::tapDisabledByUserInput);
         }},
    };
    return kinds;
}

} // namespace haloric
