// Measures how soon the settings respond, on a private desktop with a tray, and prints the figures. Failures throw
// std::runtime_error.
#pragma once

namespace haloric {

// The time from the key that activates the menu item to the painted settings window; the memory before, with and after
// it.
void measureSettingsWindow();

// The time from a pointer motion that drags a slider to the changed border on the screen.
void measureSlider();

// The time to write the settings, as each step of a slider does.
void measureSaves();

} // namespace haloric
