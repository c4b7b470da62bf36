#include "hosts/x11/server/X11DisplayLoss.h"

#include <array>
#include <atomic>
#include <csignal>
#include <string_view>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace haloric {

namespace {

constexpr std::array kCrashes{SIGSEGV, SIGBUS, SIGABRT};

// A signal handler has no other access.
std::atomic<int> watchedDescriptor = -1;
std::atomic<int> standardError = STDERR_FILENO; // the original one, while another takes its place for a moment
std::atomic<bool> isReported = false;
std::array<struct sigaction, kCrashes.size()> previous;

bool serverHasGone()
{
    pollfd connection{watchedDescriptor, 0, 0};
    return poll(&connection, 1, 0) > 0 && (connection.revents & (POLLHUP | POLLERR)) != 0;
}

void restorePrevious()
{
    for (std::size_t index = 0; index < kCrashes.size(); ++index)
        sigaction(kCrashes.at(index), &previous.at(index), nullptr);
}

// Only calls that are allowed in a signal handler.
void crashed(int signal)
{
    if (serverHasGone()) {
        X11DisplayLoss::report();
        _exit(X11DisplayLoss::kExitCode);
    }
    restorePrevious();
    if (signal == SIGABRT) // the others come again with the instruction that caused them
        raise(signal);
}

} // namespace

X11DisplayLoss::X11DisplayLoss(int descriptor)
{
    watchedDescriptor = descriptor;
    standardError = fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    isReported = false;
    struct sigaction action {};
    action.sa_handler = crashed;
    for (std::size_t index = 0; index < kCrashes.size(); ++index)
        sigaction(kCrashes.at(index), &action, &previous.at(index));
}

X11DisplayLoss::~X11DisplayLoss()
{
    restorePrevious();
    close(standardError.exchange(STDERR_FILENO));
}

void X11DisplayLoss::report()
{
    constexpr std::string_view kLine = "haloric: the X server has gone away\n";
    if (!isReported.exchange(true)) [[maybe_unused]]
        const auto written = write(standardError, kLine.data(), kLine.size());
}

} // namespace haloric
