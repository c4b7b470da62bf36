#include "hosts/linux/files/LinuxUserDefaults.h"

#include "foundation/ProductIdentity.h"
#include "hosts/linux/files/FileTrouble.h"
#include "hosts/linux/files/JsonNesting.h"
#include "hosts/linux/files/XdgFolders.h"
#include "hosts/posix/PosixFile.h"

#include <cerrno>
#include <charconv>
#include <csignal>
#include <system_error>
#include <utility>

#include <unistd.h>

namespace haloric {
namespace {

constexpr std::string_view kTemporarySuffix = ".tmp";

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

// The file that `named` stands for: itself, also while it does not exist, or what it links to. Empty for anything that
// must not be replaced, with the reason in `refusal`.
std::filesystem::path regularFileAt(const std::filesystem::path& named, std::string& refusal)
{
    using std::filesystem::file_type;
    std::error_code error;
    const file_type type = std::filesystem::symlink_status(named, error).type();
    if (type == file_type::not_found || type == file_type::regular)
        return named;
    if (type != file_type::symlink) {
        refusal = "is no ordinary file";
        return {};
    }
    const std::filesystem::path target = std::filesystem::canonical(named, error);
    if (error)
        refusal = "is a link that leads nowhere";
    else if (!std::filesystem::is_regular_file(target, error))
        refusal = "is a link to what is no ordinary file";
    return refusal.empty() ? target : std::filesystem::path();
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
    const std::filesystem::path named = pathOf(key);
    std::string refusal;
    const std::filesystem::path path = named.empty() ? named : regularFileAt(named, refusal);
    if (!refusal.empty())
        reportUnread(named, refusal);
    if (path.empty())
        return std::nullopt;
    auto bytes = PosixFile::read(path, kMaximumSize);
    std::error_code error;
    if (!bytes && std::filesystem::exists(path, error))
        reportUnread(named, std::filesystem::file_size(path, error) > kMaximumSize ? "is larger than 1 MiB"
                                                                                   : "cannot be read");
    if (!bytes || jsonNesting(*bytes) <= kMaximumNesting)
        return bytes;
    reportUnread(named, "is nested more than 64 levels deep");
    return std::nullopt;
}

void LinuxUserDefaults::reportUnread(const std::filesystem::path& path, std::string_view reason) const
{
    if (m_log)
        m_log->line("haloric: " + path.string() + " " + std::string(reason) + "; it is not read");
}

std::optional<PlatformError> LinuxUserDefaults::setData(std::string_view key, std::string_view bytes)
{
    if (m_folder.empty())
        return noUserFolder();
    const std::filesystem::path named = pathOf(key);
    if (named.empty())
        return PlatformError{.localizedDescription = "\"" + std::string(key) + "\" is no name for a file."};
    if (const int error = PosixFile::makeFolders(m_folder))
        return fileTrouble(error, m_folder);
    std::string refusal;
    const std::filesystem::path target = regularFileAt(named, refusal);
    if (target.empty())
        return PlatformError{.localizedDescription = named.string() + " " + refusal + ".",
                             .localizedRecoverySuggestion = "Move it away, then try again."};
    const std::filesystem::path folder = target.parent_path();
    if (m_tidiedKeys.emplace(key).second)
        removeLeftovers(folder, key);

    const int error = PosixFile::replace(
        target, folder / (temporaryPrefix(key) + std::to_string(getpid()) + std::string(kTemporarySuffix)), bytes);
    return error == 0 ? std::nullopt : std::optional(fileTrouble(error, folder.string()));
}

} // namespace haloric
