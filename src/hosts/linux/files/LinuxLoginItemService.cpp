#include "hosts/linux/files/LinuxLoginItemService.h"

#include "foundation/ProductIdentity.h"
#include "hosts/linux/files/FileTrouble.h"
#include "hosts/linux/files/XdgFolders.h"
#include "hosts/posix/PosixFile.h"

#include <algorithm>
#include <cerrno>

#include <unistd.h>

namespace haloric {
namespace {

constexpr std::size_t kMaximumSize = 65536; // bytes; more than an entry with translations into every language

constexpr std::string_view kBlanks = " \t\r";

std::string_view trimmed(std::string_view text)
{
    const auto first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

// One argument of an Exec line: quoted, with special characters escaped, without field codes.
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

// A value of type string, which has its own escapes.
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

// Desktops look up the program by the first word before they expand field codes ("%%"), so a path with "%" must not be
// the first word.
std::string commandFor(std::string_view launcher)
{
    const bool hasFieldCode = launcher.find('%') != std::string_view::npos;
    return (hasFieldCode ? "/usr/bin/env " : "") + quotedArgument(launcher);
}

// TryExec lets desktops skip the entry when the program is gone. Its value is printable ASCII without trailing blanks.
// Empty if the path cannot be written that way, because an entry with a wrong TryExec would never start.
std::string tryExecLine(std::string_view launcher)
{
    const auto isPlain = [](char character) { return character >= ' ' && character <= '~'; };
    if (!std::ranges::all_of(launcher, isPlain) || launcher.ends_with(' '))
        return {};
    return "TryExec=" + escapedValue(launcher) + "\n";
}

} // namespace

std::string AutostartEntry::fileName() { return std::string(ProductIdentity::kIdentifier) + ".desktop"; }

std::string AutostartEntry::text(std::string_view launcher)
{
    return "[Desktop Entry]\n"
           "Type=Application\n"
           "Name=Haloric\n"
           "Comment=Makes the focused window unmistakable\n"
           "Icon=" +
           std::string(ProductIdentity::kIdentifier) + "\nExec=" + escapedValue(commandFor(launcher)) + "\n" +
           tryExecLine(launcher) +
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

std::filesystem::path LinuxLoginItemService::standardFolder(const Processes& processes)
{
    const std::filesystem::path config = XdgFolders::config(processes);
    return config.empty() ? config : config / "autostart";
}

LinuxLoginItemService::LinuxLoginItemService(std::filesystem::path autostartFolder, std::filesystem::path launcher)
    : m_folder(std::move(autostartFolder)),
      m_launcher(std::move(launcher))
{
}

std::filesystem::path LinuxLoginItemService::entry() const { return m_folder / AutostartEntry::fileName(); }

LoginItemStatus LinuxLoginItemService::status() const
{
    std::error_code error;
    if (m_folder.empty() || !std::filesystem::exists(std::filesystem::symlink_status(entry(), error)))
        return LoginItemStatus::notRegistered;
    switch (AutostartEntry::stateOf(PosixFile::read(entry(), kMaximumSize).value_or(""))) {
    case AutostartEntry::State::enabled:
        return LoginItemStatus::enabled;
    case AutostartEntry::State::disabled:
        return LoginItemStatus::requiresApproval;
    case AutostartEntry::State::unusable:
        break;
    }
    return LoginItemStatus::notFound;
}

std::optional<PlatformError> LinuxLoginItemService::registerApplication()
{
    constexpr std::string_view kFailure = "Haloric will not start at login.";
    if (m_folder.empty())
        return errorFor(ENOENT, kFailure);
    int error = PosixFile::makeFolders(m_folder);
    if (error == 0) {
        const std::string temporary = "." + AutostartEntry::fileName() + "." + std::to_string(getpid()) + ".tmp";
        error = PosixFile::replace(entry(), m_folder / temporary, AutostartEntry::text(m_launcher.string()));
    }
    return error == 0 ? std::nullopt : std::optional(errorFor(error, kFailure));
}

std::optional<PlatformError> LinuxLoginItemService::unregisterApplication()
{
    if (m_folder.empty() || unlink(entry().c_str()) == 0 || errno == ENOENT || errno == ENOTDIR)
        return std::nullopt;
    return errorFor(errno, "Haloric will still start at login.");
}

PlatformError LinuxLoginItemService::errorFor(int number, std::string_view failure) const
{
    PlatformError error = m_folder.empty() ? noUserFolder() : fileTrouble(number, m_folder.string());
    error.localizedDescription = std::string(failure) + " " + error.localizedDescription;
    return error;
}

} // namespace haloric
