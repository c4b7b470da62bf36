#include "hosts/x11/X11TerminationSignals.h"

#include <cerrno>
#include <csignal>
#include <system_error>

#include <sys/signalfd.h>
#include <unistd.h>

namespace haloric {

X11TerminationSignals::X11TerminationSignals()
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

X11TerminationSignals::~X11TerminationSignals() { close(m_descriptor); }

void X11TerminationSignals::ignoreBrokenPipes() { std::signal(SIGPIPE, SIG_IGN); }

Subscription X11TerminationSignals::watch(X11RunLoop& runLoop, Task terminate)
{
    return runLoop.watch(m_descriptor, [this, terminate = std::move(terminate)] {
        signalfd_siginfo info{};
        while (read(m_descriptor, &info, sizeof info) > 0)
            terminate();
    });
}

} // namespace haloric
