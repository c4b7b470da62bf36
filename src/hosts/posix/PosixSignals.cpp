#include "hosts/posix/PosixSignals.h"

#include <csignal>

namespace haloric {

void PosixSignals::reset()
{
    for (int signal = 1; signal < NSIG; ++signal)
        std::signal(signal, SIG_DFL); // refused for those that cannot be changed
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
}

} // namespace haloric
