#include "hosts/posix/PosixProcesses.h"

#include "hosts/posix/PosixSignals.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <memory>

#include <dirent.h>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace haloric {
namespace {

constexpr int kFirstOtherDescriptor = STDERR_FILENO + 1;

// Every open file but the three standard ones. Listed before forking: afterwards, with other threads' locks in
// unknown states, memory must not be allocated any more.
std::vector<int> otherOpenDescriptors()
{
    std::vector<int> descriptors;
    const std::unique_ptr<DIR, int (*)(DIR*)> folder(opendir("/dev/fd"), &closedir);
    while (const dirent* entry = folder ? readdir(folder.get()) : nullptr) {
        const int descriptor = std::atoi(entry->d_name);
        if (descriptor >= kFirstOtherDescriptor && descriptor != dirfd(folder.get()))
            descriptors.push_back(descriptor);
    }
    return descriptors;
}

struct Pipe {
    int readEnd = -1;
    int writeEnd = -1;

    ~Pipe()
    {
        close(readEnd);
        closeWriteEnd();
    }

    // Neither end is inherited, and neither takes the number of a standard file that happens to be closed.
    bool open()
    {
        int ends[2];
        if (pipe(ends) != 0)
            return false;
        readEnd = fcntl(ends[0], F_DUPFD_CLOEXEC, kFirstOtherDescriptor);
        writeEnd = fcntl(ends[1], F_DUPFD_CLOEXEC, kFirstOtherDescriptor);
        close(ends[0]);
        close(ends[1]);
        return readEnd >= 0 && writeEnd >= 0;
    }

    void closeWriteEnd()
    {
        close(writeEnd);
        writeEnd = -1;
    }
};

void emptyStandardInput()
{
    const int null = open("/dev/null", O_RDWR);
    dup2(null, STDIN_FILENO);
    for (const int standard : {STDOUT_FILENO, STDERR_FILENO})
        if (fcntl(standard, F_GETFD) == -1)
            dup2(null, standard); // else the program's first own file would become its output
    if (null >= kFirstOtherDescriptor)
        close(null);
}

[[noreturn]] void reportFailure(int errorEnd)
{
    const char failed = 1;
    while (write(errorEnd, &failed, 1) < 0 && errno == EINTR) {
    }
    _exit(127);
}

// Runs in the forked process, where only calls that are safe in a signal handler may be made.
[[noreturn]] void becomeProgram(char* const* arguments, const std::vector<int>& toClose, int errorEnd)
{
    setsid();
    const pid_t program = fork(); // the one in between ends at once, so that the system adopts the program
    if (program < 0)
        reportFailure(errorEnd);
    if (program > 0)
        _exit(0);
    for (const int descriptor : toClose)
        close(descriptor);
    emptyStandardInput();
    PosixSignals::reset();
    execv(arguments[0], arguments);
    reportFailure(errorEnd);
}

// Whether the pipe ended without a report, as it does when the program replaces its last holder.
bool endsSilently(int readEnd)
{
    char failed = 0;
    ssize_t count = -1;
    do {
        count = read(readEnd, &failed, 1);
    } while (count < 0 && errno == EINTR);
    return count == 0;
}

} // namespace

bool PosixProcesses::launch(const std::string& executable, const std::vector<std::string>& arguments)
{
    std::vector<char*> argumentPointers{const_cast<char*>(executable.c_str())};
    for (const std::string& argument : arguments)
        argumentPointers.push_back(const_cast<char*>(argument.c_str()));
    argumentPointers.push_back(nullptr);
    const std::vector<int> toClose = otherOpenDescriptors();
    Pipe report;
    if (!report.open())
        return false;

    // Signals wait until the forked process has dropped this program's handlers.
    sigset_t all;
    sigset_t before;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before);
    const pid_t between = fork();
    if (between == 0)
        becomeProgram(argumentPointers.data(), toClose, report.writeEnd);
    pthread_sigmask(SIG_SETMASK, &before, nullptr);

    report.closeWriteEnd();
    if (between < 0)
        return false;
    while (waitpid(between, nullptr, 0) < 0 && errno == EINTR) {
    }
    return endsSilently(report.readEnd);
}

std::optional<std::string> PosixProcesses::environmentVariable(const char* name) const
{
    const char* const value = std::getenv(name);
    return value ? std::optional<std::string>(value) : std::nullopt;
}

} // namespace haloric
