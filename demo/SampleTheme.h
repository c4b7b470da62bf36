// The theme of the documents' desktop: configuration files of the window manager, the compositor and the toolkits.
// Lengths in them are pixels at double density.
#pragma once

#include <filesystem>

namespace haloric {

enum class Tone { light, dark };

// A theme with flat title bars and the configuration that selects it. `data` and `configuration` are the desktop's
// XDG_DATA_HOME and XDG_CONFIG_HOME.
void writeWindowTheme(Tone tone, const std::filesystem::path& data, const std::filesystem::path& configuration);

// Rounded windows with shadows; Haloric's overlays have neither.
void writeCompositorConfiguration(const std::filesystem::path& file);

// A light panel; `home` is the desktop's HOME.
void writePanelColors(const std::filesystem::path& home);

// The colours of a dark desktop, in the file from which Qt takes them (SampleDesktop::environmentOfTone()).
void writeDarkColors(const std::filesystem::path& configuration);

} // namespace haloric
