#include "hosts/linux/instance/InstanceLock.h"

#include "foundation/ProductIdentity.h"
#include "hosts/linux/files/XdgFolders.h"
#include "hosts/linux/instance/UnixSocket.h"

#include <array>
#include <cerrno>
#include <charconv>
#include <string>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace haloric {
namespace {

// Whether `folder` is a folder, not a link, that this user owns and only this user may write to.
bool isPrivate(const std::filesystem::path& folder)
{
    struct stat status {};
    return lstat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode) && status.st_uid == geteuid() &&
           (status.st_mode & (S_IWGRP | S_IWOTH)) == 0;
}

// The server's part of the name: ":0.1" is a screen of ":0".
std::string_view withoutScreen(std::string_view display)
{
    const auto colon = display.rfind(':');
    const auto dot = display.rfind('.');
    const bool hasScreen = colon != std::string_view::npos && dot != std::string_view::npos && dot > colon;
    return hasScreen ? display.substr(0, dot) : display;
}

// As a part of a file name, different for each display.
std::string encoded(std::string_view display)
{
    std::string name;
    for (const char character : display) {
        const bool isPlain = (character >= '0' && character <= '9') || (character >= 'a' && character <= 'z') ||
                             (character >= 'A' && character <= 'Z') || character == '-' || character == '.';
        if (isPlain) {
            name += character;
            continue;
        }
        std::array<char, 2> digits{};
        const auto end = std::to_chars(digits.begin(), digits.end(), static_cast<unsigned char>(character), 16).ptr;
        name += "_" + std::string(digits.begin(), end) + "_";
    }
    return name;
}

} // namespace

std::optional<InstancePaths> InstancePaths::find(const Processes& processes, std::string_view display,
                                                 const std::filesystem::path& fallback)
{
    const std::string_view server = withoutScreen(display);
    if (server.empty())
        return {};
    std::filesystem::path folder = XdgFolders::runtime(processes);
    if (!isPrivate(folder)) {
        folder = fallback / (std::string(ProductIdentity::kIdentifier) + "-" + std::to_string(geteuid()));
        mkdir(folder.c_str(), 0700);
        if (!isPrivate(folder))
            return {};
    }
    const std::string stem = std::string(ProductIdentity::kIdentifier) + "-" + encoded(server);
    return InstancePaths{.socket = folder / (stem + ".socket"), .lock = folder / (stem + ".lock")};
}

InstanceLock::InstanceLock(InstancePaths paths)
    : m_paths(std::move(paths)),
      m_lock(open(m_paths.lock.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, 0600))
{
    if (!m_lock.isOpen())
        return;
    if (flock(m_lock.number(), LOCK_EX | LOCK_NB) != 0)
        m_state = errno == EWOULDBLOCK ? State::occupied : State::unavailable;
    else if (listen())
        m_state = State::taken;
}

InstanceLock::~InstanceLock()
{
    // Remove the socket before releasing the lock, because the next holder creates one of the same name. The lock's
    // file stays: if it were removed, two processes could each lock a different file of that name.
    if (m_state == State::taken)
        unlink(m_paths.socket.c_str());
}

bool InstanceLock::listen()
{
    const auto address = UnixAddress::of(m_paths.socket);
    PosixDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
    if (!address || !socket.isOpen())
        return false;
    unlink(m_paths.socket.c_str()); // left by a killed instance
    if (bind(socket.number(), address->raw(), UnixAddress::kSize) != 0 || chmod(m_paths.socket.c_str(), 0600) != 0 ||
        ::listen(socket.number(), SOMAXCONN) != 0)
        return false;
    m_listening = std::move(socket);
    return true;
}

} // namespace haloric
