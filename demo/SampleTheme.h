// How the desktop of the documentation's pictures looks: files for the window manager, the compositor and the toolkit,
// in the formats that these define. Lengths in them are pixels of a screen of double density.
#pragma once

#include <filesystem>

namespace haloric {

enum class Tone { light, dark };

// A theme of flat title bars with a title and two buttons, and the configuration that names it. `data` and
// `configuration` stand for XDG_DATA_HOME and XDG_CONFIG_HOME.
void writeWindowTheme(Tone tone, const std::filesystem::path& data, const std::filesystem::path& configuration);

// Windows with round corners and soft shadows, and neither for what Haloric shows.
void writeCompositorConfiguration(const std::filesystem::path& file);

// A light panel; `home` stands for the user's own folder.
void writePanelColors(const std::filesystem::path& home);

// The colours of a dark desktop, in the file from which the toolkit takes them (environmentOf).
void writeDarkColors(const std::filesystem::path& configuration);

} // namespace haloric
