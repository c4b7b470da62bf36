// Where the running program was installed, and the information dictionary that came with it. Any thread.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace haloric {

class Bundle {
public:
    virtual ~Bundle() = default;

    // The bundle folder's path; for a program outside a bundle, the folder of its executable. No trailing slash.
    virtual std::string path() const = 0;

    // The bundle identifier; absent outside a bundle, or when it has none.
    virtual std::optional<std::string> identifier() const = 0;

    // The beginning of a shell command that opens a bundle; the path follows, in double quotes.
    virtual std::string openCommand() const { return "/usr/bin/open"; }

    // Whether the information dictionary has a value of that key, of any type.
    virtual bool hasInfo(std::string_view key) const = 0;

    // A text value of the information dictionary; absent when it is missing or not text.
    virtual std::optional<std::string> infoString(std::string_view key) const = 0;
};

} // namespace haloric
