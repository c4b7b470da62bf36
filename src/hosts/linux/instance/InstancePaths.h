// Where the running instance of a display can be reached: a socket and a lock in a folder that is the user's alone.
#pragma once

#include <filesystem>
#include <optional>
#include <string_view>

namespace haloric {

class Processes;

struct InstancePaths {
    std::filesystem::path socket;
    std::filesystem::path lock;

    // The place for a display, as DISPLAY names it; its screens share one. It is in $XDG_RUNTIME_DIR, or where that is
    // unset or open to others, in a folder of the user's own below `fallback`, which is made. Absent when that is not
    // the user's alone either, or the display has no name.
    static std::optional<InstancePaths> find(const Processes& processes, std::string_view display,
                                             const std::filesystem::path& fallback = "/tmp");
};

} // namespace haloric
