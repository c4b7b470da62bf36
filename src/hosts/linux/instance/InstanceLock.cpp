#include "hosts/linux/instance/InstanceLock.h"

#include "hosts/linux/instance/UnixAddress.h"

#include <cerrno>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace haloric {

InstanceLock::InstanceLock(InstancePaths place)
    : m_place(std::move(place)),
      m_lock(open(m_place.lock.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, 0600))
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
    // Before the lock goes, as the next holder makes a socket of the same name. The lock's file stays: one that is
    // taken away could be held by two, each having another file.
    if (m_state == State::taken)
        unlink(m_place.socket.c_str());
}

bool InstanceLock::listen()
{
    const auto address = UnixAddress::of(m_place.socket);
    PosixDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
    if (!address || !socket.isOpen())
        return false;
    unlink(m_place.socket.c_str()); // left by one that was killed
    if (bind(socket.number(), address->raw(), UnixAddress::kSize) != 0 || chmod(m_place.socket.c_str(), 0600) != 0 ||
        ::listen(socket.number(), SOMAXCONN) != 0)
        return false;
    m_listening = std::move(socket);
    return true;
}

} // namespace haloric
