// The user's folders by the desktop's environment variables.
#pragma once

#include <string>

namespace haloric {
class Processes;
}

namespace haloric::XdgFolders {

// $XDG_CONFIG_HOME, or $HOME/.config if that is unset or not an absolute path. Empty if neither is set.
std::string config(const Processes& processes);

// $XDG_RUNTIME_DIR; empty if it is unset or not an absolute path.
std::string runtime(const Processes& processes);

} // namespace haloric::XdgFolders
