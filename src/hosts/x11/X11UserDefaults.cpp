#include "hosts/x11/X11UserDefaults.h"

#include <array>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace haloric {
namespace {

constexpr const char* kFolderName = "com.kestrow.haloric";
constexpr std::string_view kTemporarySuffix = ".tmp";
constexpr std::size_t kMaximumSize = std::size_t{16} << 20; // bytes; a list of every program there is stays below

class Descriptor {
public:
    explicit Descriptor(int number) : m_number(number) {}
    ~Descriptor() { closeNow(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int number() const { return m_number; }
    bool isOpen() const { return m_number >= 0; }
    bool closeNow() { return m_number < 0 || close(std::exchange(m_number, -1)) == 0; }

private:
    int m_number;
};

// Where a value of `key` is written before it replaces the one at `path`: ".KEY.PROCESS.tmp", so that it can be told
// later whether its writer still runs.
std::string temporaryPrefix(std::string_view key) { return "." + std::string(key) + "."; }

bool makeFolders(const std::filesystem::path& folder)
{
    std::error_code error;
    if (std::filesystem::is_directory(folder, error))
        return true;
    if (folder.has_relative_path() && !makeFolders(folder.parent_path()))
        return false;
    return mkdir(folder.c_str(), 0700) == 0 || errno == EEXIST;
}

bool writeAll(int descriptor, std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t written = write(descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR)
            continue;
        if (written < 0)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

// Makes a new file with these bytes; what is there of the name already was left by another run of the same number.
bool writeFile(const std::string& path, std::string_view bytes)
{
    unlink(path.c_str());
    Descriptor file(open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
    if (!file.isOpen())
        return false;
    return writeAll(file.number(), bytes) && file.closeNow(); // some file systems tell only on closing
}

bool isRunning(std::string_view processNumber)
{
    pid_t process = 0;
    const auto [end, error] = std::from_chars(processNumber.begin(), processNumber.end(), process);
    if (error != std::errc() || end != processNumber.end() || process <= 0)
        return true; // not a name of ours: left alone
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

std::string X11UserDefaults::standardFolder(const Processes& processes)
{
    const std::string configured = processes.environmentVariable("XDG_CONFIG_HOME").value_or("");
    if (configured.starts_with('/'))
        return configured + "/" + kFolderName;
    const std::string home = processes.environmentVariable("HOME").value_or("");
    return home.starts_with('/') ? home + "/.config/" + kFolderName : "";
}

std::string X11UserDefaults::pathOf(std::string_view key) const
{
    const bool isFileName = !key.empty() && key != "." && key != ".." && key.find('/') == std::string_view::npos &&
                            key.find('\0') == std::string_view::npos;
    return isFileName && !m_folder.empty() ? m_folder + "/" + std::string(key) : "";
}

std::optional<std::string> X11UserDefaults::data(std::string_view key) const
{
    // Not blocking, in case a pipe stands there.
    const Descriptor file(open(pathOf(key).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat status {};
    if (!file.isOpen() || fstat(file.number(), &status) != 0 || !S_ISREG(status.st_mode))
        return std::nullopt;
    std::string bytes;
    std::array<char, 16384> part;
    while (bytes.size() <= kMaximumSize) {
        const ssize_t count = read(file.number(), part.data(), part.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return std::nullopt;
        if (count == 0)
            return bytes;
        bytes.append(part.data(), static_cast<std::size_t>(count));
    }
    return std::nullopt;
}

void X11UserDefaults::setData(std::string_view key, std::string_view bytes)
{
    const std::filesystem::path named = pathOf(key);
    if (named.empty() || !makeFolders(m_folder))
        return;
    // A link that leads nowhere is replaced itself.
    std::error_code error;
    const std::filesystem::path resolved = std::filesystem::canonical(named, error);
    const std::filesystem::path& target = error ? named : resolved;
    const std::filesystem::path folder = target.parent_path();
    if (m_tidiedKeys.emplace(key).second)
        removeLeftovers(folder, key);

    const std::string temporary =
        folder / (temporaryPrefix(key) + std::to_string(getpid()) + std::string(kTemporarySuffix));
    if (!writeFile(temporary, bytes) || std::rename(temporary.c_str(), target.c_str()) != 0)
        unlink(temporary.c_str());
}

} // namespace haloric
