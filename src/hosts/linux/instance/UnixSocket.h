// Addresses and peers of Unix sockets.
#pragma once

#include <cstring>
#include <filesystem>
#include <optional>
#include <string>

#include <sys/socket.h>
#include <sys/types.h>
#include <sys/un.h>

namespace haloric {

struct UnixAddress {
    sockaddr_un value{};

    // Absent for a path that is too long for a socket's address.
    static std::optional<UnixAddress> of(const std::filesystem::path& path)
    {
        const std::string& text = path.native();
        UnixAddress address;
        if (text.size() >= sizeof address.value.sun_path)
            return {};
        address.value.sun_family = AF_UNIX;
        std::memcpy(address.value.sun_path, text.c_str(), text.size() + 1);
        return address;
    }

    const sockaddr* raw() const { return reinterpret_cast<const sockaddr*>(&value); }
    static constexpr socklen_t kSize = sizeof(sockaddr_un);
};

// The user of the process that connected or listens at the other end; absent if the system does not report it.
inline std::optional<uid_t> peerUser(int socket)
{
    ucred credentials{};
    socklen_t size = sizeof credentials;
    if (getsockopt(socket, SOL_SOCKET, SO_PEERCRED, &credentials, &size) != 0)
        return {};
    return credentials.uid;
}

} // namespace haloric
