// Makes up the start of a random scenario and the arguments of its steps, which fit the desktop as it is. Dice are
// thrown in separate statements, since the order in which a call's arguments are evaluated depends on the compiler.
#pragma once

#include "hosts/sim/desktop/SimDesktop.h"
#include "hosts/sim/scenario/random/SimDice.h"
#include "hosts/sim/scenario/session/SimJson.h"

#include <optional>
#include <utility>

namespace haloric {

class SimRandomArguments {
public:
    using Arguments = std::optional<SimJson>; // absent: nothing on the desktop can take the step

    explicit SimRandomArguments(SimDice& dice) : m_dice(dice) {}

    // A desktop to begin with, as in a scenario file.
    SimJson setup();

    // The desktop that the next arguments are for; it outlives them.
    void lookAt(const SimDesktop& desktop) { m_desktop = &desktop; }

    Arguments none() { return SimJson::object(); }

    // Applications.
    Arguments launch();
    Arguments anyApp();
    Arguments hiddenApp();
    Arguments otherApp(); // not Haloric
    Arguments answer();   // of a hung application
    Arguments hang();
    Arguments observable();

    // Windows.
    Arguments open();
    Arguments anyWindow();
    Arguments minimisedWindow();
    Arguments fullScreenWindow();
    Arguments move();
    Arguments resize();
    Arguments drag();
    Arguments alpha();
    Arguments layer();
    Arguments decoration();
    Arguments sendToSpace();

    // The system.
    Arguments space();
    Arguments plug();
    Arguments unplug();
    Arguments resizeScreen();
    Arguments trust();
    Arguments settings();
    Arguments wallClock();

    // Input.
    Arguments button();
    Arguments key();
    Arguments menu();
    Arguments control();

    // Faults.
    Arguments disableTap();
    Arguments failCall();
    Arguments timeOutCall();
    Arguments missWindowLists();
    Arguments refuseNotifications();
    Arguments failSaves();
    Arguments notify();

private:
    Arguments appWith(bool (*matches)(const SimApp&));
    Arguments windowWith(bool (*matches)(const SimWindow&));
    Rect anyFrame();
    SimJson anySetting();
    void addDimming(SimJson& change);
    static Arguments withValue(Arguments arguments, SimJson value)
    {
        if (arguments)
            (*arguments)["value"] = std::move(value);
        return arguments;
    }

    SimDice& m_dice;
    const SimDesktop* m_desktop = nullptr;
    int m_apps = 0;
    int m_windows = 0;
};

} // namespace haloric
