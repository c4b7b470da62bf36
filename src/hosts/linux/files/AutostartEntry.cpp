#include "hosts/linux/files/AutostartEntry.h"

#include <algorithm>

namespace haloric {
namespace {

constexpr std::string_view kBlanks = " \t\r";

std::string_view trimmed(std::string_view text)
{
    const auto first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

// One argument of an Exec line: in quotes, with what is special inside them escaped, and no field codes.
std::string quotedArgument(std::string_view argument)
{
    std::string quoted = "\"";
    for (const char character : argument) {
        if (std::string_view("\"`$\\").find(character) != std::string_view::npos)
            quoted += '\\';
        if (character == '%')
            quoted += '%';
        quoted += character;
    }
    return quoted + '"';
}

// A text value of a desktop entry, which has escapes of its own.
std::string escapedValue(std::string_view value)
{
    std::string escaped;
    for (const char character : value) {
        switch (character) {
        case '\\':
            escaped += "\\\\";
            break;
        case '\n':
            escaped += "\\n";
            break;
        case '\t':
            escaped += "\\t";
            break;
        case '\r':
            escaped += "\\r";
            break;
        default:
            escaped += character;
        }
    }
    return escaped;
}

// Field codes are replaced after the program has been looked up by its first word, so such a path must not be that.
std::string commandFor(std::string_view launcher)
{
    const bool hasFieldCode = launcher.find('%') != std::string_view::npos;
    return (hasFieldCode ? "/usr/bin/env " : "") + quotedArgument(launcher);
}

// Lets desktops pass over the entry once the program has been removed. The key holds printable ASCII, is read without
// blanks at its end, and an entry with a mangled path in it would never start: then rather none.
std::string tryExecLine(std::string_view launcher)
{
    const auto isPlain = [](char character) { return character >= ' ' && character <= '~'; };
    if (!std::ranges::all_of(launcher, isPlain) || launcher.ends_with(' '))
        return {};
    return "TryExec=" + escapedValue(launcher) + "\n";
}

} // namespace

std::string AutostartEntry::text(std::string_view launcher)
{
    return "[Desktop Entry]\n"
           "Type=Application\n"
           "Name=Haloric\n"
           "Comment=Makes the focused window unmistakable\n"
           "Icon=com.kestrow.haloric\n"
           "Exec=" +
           escapedValue(commandFor(launcher)) + "\n" + tryExecLine(launcher) +
           "Terminal=false\n"
           "X-GNOME-Autostart-enabled=true\n";
}

AutostartEntry::State AutostartEntry::stateOf(std::string_view text)
{
    bool isInEntry = false;
    bool startsSomething = false;
    bool isDisabled = false;
    while (!text.empty()) {
        const auto end = std::min(text.find('\n'), text.size());
        const std::string_view line = trimmed(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        if (line.starts_with('['))
            isInEntry = line == "[Desktop Entry]";
        const auto equals = line.find('=');
        if (!isInEntry || line.starts_with('#') || equals == std::string_view::npos)
            continue;
        const std::string_view key = trimmed(line.substr(0, equals));
        const std::string_view value = trimmed(line.substr(equals + 1));
        startsSomething = startsSomething || (key == "Exec" && !value.empty());
        isDisabled = isDisabled || (key == "Hidden" && value == "true") ||
                     (key == "X-GNOME-Autostart-enabled" && value == "false");
    }
    if (isDisabled)
        return State::disabled;
    return startsSomething ? State::enabled : State::unusable;
}

} // namespace haloric
