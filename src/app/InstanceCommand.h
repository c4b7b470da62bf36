// What a second start of the program asks of the running one, and how it is answered: one line of text there, a head
// line and a text back. Pure.
#pragma once

#include "settings/Settings.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace haloric {

struct InstanceCommand {
    enum class Kind {
        reopen, // as opening the application again does
        quit,
        toggle, // switch an effect on or off
        printSettings,
    };

    // Longer lines are none of ours, bytes.
    static constexpr std::size_t kMaximumLength = 100;

    Kind kind = Kind::reopen;
    std::string effect = {}; // for toggle; one that `switchOf` knows
    friend bool operator==(const InstanceCommand&, const InstanceCommand&) = default;

    // The line without its end.
    std::string line() const;

    // Absent for everything that `line` does not give.
    static std::optional<InstanceCommand> parse(std::string_view line);

    // The field that switches an effect; null for a name that is none.
    static bool Settings::*switchOf(std::string_view effect);

    // For messages, separated by commas.
    static std::string effectNames();
};

struct InstanceReply {
    // More than any record of settings has, bytes.
    static constexpr std::size_t kMaximumLength = std::size_t{16} << 20;

    bool done = false;
    std::string text = {}; // to be shown; empty when there is nothing to say
    friend bool operator==(const InstanceReply&, const InstanceReply&) = default;

    std::string bytes() const;

    // Absent unless the bytes are exactly one whole reply.
    static std::optional<InstanceReply> parse(std::string_view bytes);
};

} // namespace haloric
