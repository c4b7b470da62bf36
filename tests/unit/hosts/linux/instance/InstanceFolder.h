// A private folder for the socket and the lock of a test, and plain ends of connections to it.
#pragma once

#include "hosts/linux/instance/InstanceLock.h"
#include "hosts/linux/instance/UnixSocket.h"
#include "hosts/posix/PosixDescriptor.h"
#include "testing/x11/TemporaryFolder.h"

namespace haloric {

struct InstanceFolder {
    TemporaryFolder folder;
    InstancePaths paths{.socket = folder.path() / "it.socket", .lock = folder.path() / "it.lock"};

    // A connection to the socket; not open if no process listens.
    PosixDescriptor connected() const
    {
        PosixDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
        const auto address = UnixAddress::of(paths.socket);
        const bool done = address && connect(socket.number(), address->raw(), UnixAddress::kSize) == 0;
        return done ? std::move(socket) : PosixDescriptor();
    }

    // Listens and does nothing else, like a program that hangs.
    PosixDescriptor listening() const
    {
        PosixDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
        const auto address = UnixAddress::of(paths.socket);
        const bool done =
            bind(socket.number(), address->raw(), UnixAddress::kSize) == 0 && listen(socket.number(), 1) == 0;
        return done ? std::move(socket) : PosixDescriptor();
    }
};

} // namespace haloric
