// The user's folders by the desktop's environment variables.
#pragma once

#include <string>
#include <vector>

namespace haloric {
class Processes;
}

namespace haloric::XdgFolders {

// $XDG_CONFIG_HOME, or $HOME/.config if that is unset or not an absolute path. Empty if neither is set.
std::string config(const Processes& processes);

// $XDG_RUNTIME_DIR; empty if it is unset or not an absolute path.
std::string runtime(const Processes& processes);

// Where installed files are looked up, the first one first: $XDG_DATA_HOME, or $HOME/.local/share, then the folders of
// $XDG_DATA_DIRS, or /usr/local/share and /usr/share. Relative paths are left out.
std::vector<std::string> data(const Processes& processes);

} // namespace haloric::XdgFolders
