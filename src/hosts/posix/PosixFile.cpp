#include "hosts/posix/PosixFile.h"

#include "hosts/posix/PosixDescriptor.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace haloric {
namespace {

int writeAll(int descriptor, std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR)
            continue;
        if (written < 0)
            return errno;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return 0;
}

// Makes a new file with these bytes; what is there of the name already was left by another run of the same number.
int writeFile(const std::filesystem::path& path, std::string_view bytes)
{
    unlink(path.c_str());
    PosixDescriptor file(open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
    if (!file.isOpen())
        return errno;
    if (const int error = writeAll(file.number(), bytes))
        return error;
    return file.closeNow() ? 0 : errno;
}

} // namespace

std::optional<std::string> PosixFile::read(const std::filesystem::path& path, std::size_t maximumSize)
{
    const PosixDescriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat status {};
    if (!file.isOpen() || fstat(file.number(), &status) != 0 || !S_ISREG(status.st_mode))
        return std::nullopt;
    std::string bytes;
    std::array<char, 16384> part;
    while (bytes.size() <= maximumSize) {
        const ssize_t count = ::read(file.number(), part.data(), part.size());
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

int PosixFile::makeFolders(const std::filesystem::path& folder)
{
    std::error_code error;
    if (std::filesystem::is_directory(folder, error))
        return 0;
    if (folder.has_relative_path()) {
        if (const int number = makeFolders(folder.parent_path()))
            return number;
    }
    if (mkdir(folder.c_str(), 0700) == 0)
        return 0;
    const int number = errno; // another process may have made it meanwhile
    return number == EEXIST && std::filesystem::is_directory(folder, error) ? 0 : number;
}

int PosixFile::replace(const std::filesystem::path& path, const std::filesystem::path& temporary,
                       std::string_view bytes)
{
    int error = writeFile(temporary, bytes);
    if (error == 0 && std::rename(temporary.c_str(), path.c_str()) != 0)
        error = errno;
    if (error != 0)
        unlink(temporary.c_str());
    return error;
}

} // namespace haloric
