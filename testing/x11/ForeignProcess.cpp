#include "testing/x11/ForeignProcess.h"

#include <algorithm>
#include <csignal>
#include <cstring>
#include <stdexcept>
#include <utility>

#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

namespace haloric {
namespace {

int connectTo(const std::string& display)
{
    const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const std::string path = "/tmp/.X11-unix/X" + display.substr(1);
    std::copy_n(path.begin(), std::min(path.size(), sizeof address.sun_path - 1), address.sun_path);
    ::connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address);
    return socket;
}

// A message of one byte with at most one descriptor.
struct DescriptorMessage {
    char byte = 0;
    iovec data{&byte, 1};
    alignas(cmsghdr) char control[CMSG_SPACE(sizeof(int))] = {};
    msghdr header{};

    DescriptorMessage()
    {
        header.msg_iov = &data;
        header.msg_iovlen = 1;
        header.msg_control = control;
        header.msg_controllen = sizeof control;
    }
};

void sendDescriptor(int channel, int descriptor)
{
    DescriptorMessage message;
    cmsghdr* part = CMSG_FIRSTHDR(&message.header);
    part->cmsg_level = SOL_SOCKET;
    part->cmsg_type = SCM_RIGHTS;
    part->cmsg_len = CMSG_LEN(sizeof descriptor);
    std::memcpy(CMSG_DATA(part), &descriptor, sizeof descriptor);
    ::sendmsg(channel, &message.header, 0);
}

int receiveDescriptor(int channel)
{
    DescriptorMessage message;
    if (::recvmsg(channel, &message.header, MSG_CMSG_CLOEXEC) != 1)
        return -1;
    const cmsghdr* part = CMSG_FIRSTHDR(&message.header);
    if (part == nullptr)
        return -1;
    int descriptor = -1;
    std::memcpy(&descriptor, CMSG_DATA(part), sizeof descriptor);
    return descriptor;
}

} // namespace

ForeignProcess::ForeignProcess(const std::string& display)
{
    int ends[2];
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0)
        throw std::runtime_error("cannot create a pair of sockets");
    const pid_t parent = ::getpid();
    m_pid = ::fork();
    if (m_pid < 0)
        throw std::runtime_error("cannot create a process");
    if (m_pid == 0) {
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);
        if (::getppid() != parent)
            ::_exit(1);
        const int socket = connectTo(display);
        sendDescriptor(ends[1], socket);
        ::close(socket);
        while (true)
            ::pause();
    }
    ::close(ends[1]);
    m_socket = receiveDescriptor(ends[0]);
    ::close(ends[0]);
    if (m_socket < 0)
        throw std::runtime_error("the foreign process does not connect");
}

ForeignProcess::~ForeignProcess()
{
    if (m_socket >= 0)
        ::close(m_socket);
    ::kill(m_pid, SIGKILL);
    ::waitpid(m_pid, nullptr, 0);
}

int ForeignProcess::takeSocket() { return std::exchange(m_socket, -1); }

} // namespace haloric
