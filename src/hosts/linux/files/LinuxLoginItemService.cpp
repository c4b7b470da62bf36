#include "hosts/linux/files/LinuxLoginItemService.h"

#include "hosts/linux/files/AutostartEntry.h"
#include "hosts/linux/files/XdgFolders.h"
#include "hosts/posix/PosixFile.h"

#include <cerrno>
#include <system_error>

#include <unistd.h>

namespace haloric {
namespace {

constexpr std::size_t kMaximumSize = 65536; // bytes; an entry with its name in every language stays below
constexpr const char* kErrorDomain = "POSIX";

struct Reason {
    std::string description;
    std::string suggestion;
};

Reason reasonFor(int number, const std::string& folder)
{
    switch (number) {
    case EACCES:
    case EPERM:
    case EROFS:
        return {"The folder " + folder + " cannot be changed.", "Make it writable, then try again."};
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return {"The disk has no room left for " + folder + ".", "Make some room, then try again."};
    case ENOTDIR:
    case EEXIST:
    case EISDIR:
        return {"Something else is in the way of " + folder + ".", "Move it away, then try again."};
    default:
        return {"The folder " + folder + " does not answer: " + std::generic_category().message(number) + ".", ""};
    }
}

} // namespace

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

std::filesystem::path LinuxLoginItemService::entry() const { return m_folder / AutostartEntry::kFileName; }

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
    if (m_folder.empty()) {
        return PlatformError{kErrorDomain, ENOENT,
                             std::string(kFailure) + " Neither XDG_CONFIG_HOME nor HOME names a folder.", ""};
    }
    int error = PosixFile::makeFolders(m_folder);
    if (error == 0) {
        const std::string temporary =
            "." + std::string(AutostartEntry::kFileName) + "." + std::to_string(getpid()) + ".tmp";
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
    Reason reason = reasonFor(number, m_folder.string());
    return {kErrorDomain, number, std::string(failure) + " " + reason.description, std::move(reason.suggestion)};
}

} // namespace haloric
