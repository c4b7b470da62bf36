// Where the desktop keeps a user's things, by its environment variables.
#pragma once

#include <string>

namespace haloric {
class Processes;
}

namespace haloric::XdgFolders {

// $XDG_CONFIG_HOME, or $HOME/.config where that is unset or no absolute path. Empty when neither is known.
std::string config(const Processes& processes);

// $XDG_RUNTIME_DIR; empty when it is unset or no absolute path.
std::string runtime(const Processes& processes);

} // namespace haloric::XdgFolders
