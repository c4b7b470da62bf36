// The folder of the installed program, and its information dictionary. Any thread.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace haloric {

class Bundle {
public:
    virtual ~Bundle() = default;

    // The path of the bundle folder; outside a bundle, the folder of the executable. No trailing slash.
    virtual std::string path() const = 0;

    // The bundle identifier; absent outside a bundle, or if the bundle has none.
    virtual std::optional<std::string> identifier() const = 0;

    // A shell command that starts the program of this bundle again. This one is macOS's; quotes in the path are not
    // escaped.
    virtual std::string relaunchCommand() const { return "/usr/bin/open \"" + path() + "\""; }

    // Whether the information dictionary has a value for that key, of any type.
    virtual bool hasInfo(std::string_view key) const = 0;

    // A text value of the information dictionary; absent if it is missing or not text.
    virtual std::optional<std::string> infoString(std::string_view key) const = 0;

    // A number of the information dictionary, or 1 or 0 for a boolean; absent if it is missing or of another type. This
    // one is for hosts whose frameworks read such values by themselves.
    virtual std::optional<double> infoNumber(std::string_view) const { return {}; }
};

} // namespace haloric
