// Measures what the user touches, on a private desktop with a tray, and prints the figures. Throws std::runtime_error
// when the desktop or the program does not do what it is asked.
#pragma once

namespace haloric {

// From the key that chooses the menu's item to the settings window, painted; the memory before, with and after it.
void measureSettingsWindow();

// From a movement of the pointer that drags a slider to the changed border on the screen.
void measureSlider();

// Writes of the settings, as each step of a slider makes one.
void measureSaves();

} // namespace haloric
