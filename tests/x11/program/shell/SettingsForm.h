// The fixture of the tests of the settings window: moves the keyboard focus through its controls.
#pragma once

#include "x11/program/shell/Shell.h"

namespace haloric {

// A pixel of the screen.
struct Spot {
    int x = 0;
    int y = 0;
};

// A toggle of one field, named as in SettingsForm::order().
struct Toggle {
    const char* name;
    bool Settings::*field;
};
inline constexpr Toggle kToggles[] = {
    {"hideWhenFullScreen", &Settings::hideWhenFullScreen},
    {"borderEnabled", &Settings::borderEnabled},
    {"glowEnabled", &Settings::glowEnabled},
    {"tintEnabled", &Settings::tintEnabled},
    {"dimEnabled", &Settings::dimEnabled},
    {"pulseEnabled", &Settings::pulseEnabled},
    {"hotkeyEnabled", &Settings::hotkeyEnabled},
};

class SettingsForm : public Shell {
protected:
    // Starts the program and opens its settings. The first control has the keyboard focus then.
    void open(const std::string& settings = kStill);

    // Moves the keyboard focus to a control, named as in order(). Does not wait: later keys are handled after these.
    void goTo(const std::string& name);

    // The focusable controls, top to bottom, for the stored record.
    std::vector<std::string> order();

    // Opens the dialog of the focused colour well and chooses a colour by the pointer.
    [[nodiscard]] bool chooseInDialog(const std::string& title);

    ScreenRect frame() { return shell->frame(); }

    // Places that the effects colour, around the settings window and on the desktop.
    Spot onBorder(int depth = 2) { return {frame().x + frame().width / 2, frame().bottom() - depth}; }
    Spot onGlow(int distance = 4) { return {frame().right() + distance, frame().y + frame().height / 2}; }
    Spot onTitle() { return {frame().x + frame().width / 4, (frame().y + shell->content().y) / 2}; }
    static Spot onDesktop() { return {1700, 900}; }

private:
    std::string m_current;
};

} // namespace haloric
