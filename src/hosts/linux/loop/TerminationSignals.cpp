#include "hosts/linux/loop/TerminationSignals.h"

#include <cerrno>
#include <csignal>
#include <system_error>

#include <sys/signalfd.h>
#include <unistd.h>

namespace haloric {

TerminationSignals::TerminationSignals()
{
    sigset_t signals;
    sigemptyset(&signals);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP})
        sigaddset(&signals, signal);
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    m_descriptor = signalfd(-1, &signals, SFD_NONBLOCK | SFD_CLOEXEC);
    if (m_descriptor < 0)
        throw std::system_error(errno, std::generic_category(), "signalfd");
}

TerminationSignals::~TerminationSignals() { close(m_descriptor); }

void TerminationSignals::ignoreBrokenPipes() { std::signal(SIGPIPE, SIG_IGN); }

Subscription TerminationSignals::watch(LinuxRunLoop& runLoop, Task terminate)
{
    return runLoop.watch(m_descriptor, [this, terminate = std::move(terminate)] {
        signalfd_siginfo info{};
        while (read(m_descriptor, &info, sizeof info) > 0)
            terminate();
    });
}

} // namespace haloric
