#include "hosts/linux/files/LinuxUserDefaults.h"

#include "foundation/ProductIdentity.h"
#include "hosts/linux/files/XdgFolders.h"
#include "hosts/posix/PosixFile.h"

#include <cerrno>
#include <charconv>
#include <csignal>
#include <filesystem>
#include <system_error>

#include <unistd.h>

namespace haloric {
namespace {

constexpr std::string_view kTemporarySuffix = ".tmp";
constexpr std::size_t kMaximumSize = std::size_t{16} << 20; // bytes

// Temporary files are named ".KEY.PID.tmp", so a later process can check whether the writer still runs.
std::string temporaryPrefix(std::string_view key) { return "." + std::string(key) + "."; }

bool isRunning(std::string_view processNumber)
{
    pid_t process = 0;
    const auto [end, error] = std::from_chars(processNumber.begin(), processNumber.end(), process);
    if (error != std::errc() || end != processNumber.end() || process <= 0)
        return true; // not a name written by this class
    return kill(process, 0) == 0 || errno != ESRCH;
}

void removeLeftovers(const std::filesystem::path& folder, std::string_view key)
{
    const std::string prefix = temporaryPrefix(key);
    std::error_code error;
    std::filesystem::directory_iterator entry(folder, error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        const std::string name = entry->path().filename().string();
        std::string_view number = name;
        if (!number.starts_with(prefix) || !number.ends_with(kTemporarySuffix) ||
            number.size() < prefix.size() + kTemporarySuffix.size())
            continue;
        number.remove_prefix(prefix.size());
        number.remove_suffix(kTemporarySuffix.size());
        if (!isRunning(number))
            unlink(entry->path().c_str());
    }
}

} // namespace

std::string LinuxUserDefaults::standardFolder(const Processes& processes)
{
    const std::string folder = XdgFolders::config(processes);
    return folder.empty() ? "" : folder + "/" + ProductIdentity::kIdentifier;
}

std::string LinuxUserDefaults::pathOf(std::string_view key) const
{
    const bool isFileName = !key.empty() && key != "." && key != ".." && key.find('/') == std::string_view::npos &&
                            key.find('\0') == std::string_view::npos;
    return isFileName && !m_folder.empty() ? m_folder + "/" + std::string(key) : "";
}

std::optional<std::string> LinuxUserDefaults::data(std::string_view key) const
{
    return PosixFile::read(pathOf(key), kMaximumSize);
}

void LinuxUserDefaults::setData(std::string_view key, std::string_view bytes)
{
    const std::filesystem::path named = pathOf(key);
    if (named.empty() || PosixFile::makeFolders(m_folder) != 0)
        return;
    // A dangling link is itself replaced.
    std::error_code error;
    const std::filesystem::path resolved = std::filesystem::canonical(named, error);
    const std::filesystem::path& target = error ? named : resolved;
    const std::filesystem::path folder = target.parent_path();
    if (m_tidiedKeys.emplace(key).second)
        removeLeftovers(folder, key);

    PosixFile::replace(
        target, folder / (temporaryPrefix(key) + std::to_string(getpid()) + std::string(kTemporarySuffix)), bytes);
}

} // namespace haloric
