// Who is at the other end of a Unix socket.
#pragma once

#include <optional>

#include <sys/socket.h>
#include <sys/types.h>

namespace haloric {

// The user whose process connected, or listens; absent when the system does not tell.
inline std::optional<uid_t> peerUser(int socket)
{
    ucred credentials{};
    socklen_t size = sizeof credentials;
    if (getsockopt(socket, SOL_SOCKET, SO_PEERCRED, &credentials, &size) != 0)
        return {};
    return credentials.uid;
}

} // namespace haloric
