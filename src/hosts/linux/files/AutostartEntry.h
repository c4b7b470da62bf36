// The desktop entry by which a desktop starts the program at login: writing one, and reading what became of it. Pure.
#pragma once

#include <string>
#include <string_view>

namespace haloric {

struct AutostartEntry {
    static constexpr const char* kFileName = "com.kestrow.haloric.desktop";

    enum class State {
        enabled,
        disabled, // by the user or the desktop, who leave the entry there and mark it
        unusable, // no entry, or one that starts nothing
    };

    // An entry that starts the program at `launcher`, an absolute path with any characters. While
    // there is none, desktops pass over the entry, unless the path has characters with which that cannot be said.
    static std::string text(std::string_view launcher);

    static State stateOf(std::string_view text);
};

} // namespace haloric
