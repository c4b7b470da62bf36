// The command that a second start of the program sends to the running instance, one line of text, and the reply, a head
// line and a text. Pure.
#pragma once

#include "settings/Settings.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace haloric {

struct InstanceCommand {
    enum class Kind {
        reopen, // the same as opening the application again
        quit,
        toggle, // switch an effect on or off
        printSettings,
    };

    // Maximum length of a command, in bytes.
    static constexpr std::size_t kMaximumLength = 100;

    Kind kind = Kind::reopen;
    std::string effect = {}; // for toggle; a name that `switchOf` accepts
    friend bool operator==(const InstanceCommand&, const InstanceCommand&) = default;

    // The command as a line, without the newline.
    std::string line() const;

    // Absent for every text that `line` cannot return.
    static std::optional<InstanceCommand> parse(std::string_view line);

    // The field that switches an effect; null for an unknown name.
    static bool Settings::*switchOf(std::string_view effect);

    // The accepted names for messages, separated by commas.
    static std::string effectNames();
};

struct InstanceReply {
    // In bytes; larger than any settings record.
    static constexpr std::size_t kMaximumLength = std::size_t{16} << 20;

    bool done = false;
    std::string text = {}; // the text to show; may be empty
    friend bool operator==(const InstanceReply&, const InstanceReply&) = default;

    std::string bytes() const;

    // Absent unless the bytes are exactly one complete reply.
    static std::optional<InstanceReply> parse(std::string_view bytes);
};

} // namespace haloric
