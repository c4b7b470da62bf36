// Writes to the pipe that its first argument names how it was started, a line a fact.
#include <csignal>
#include <cstdlib>
#include <fstream>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

int main(int count, char** arguments)
{
    // Before anything is opened that could take the place of a standard file.
    const bool outputIsOpen = fcntl(STDOUT_FILENO, F_GETFD) != -1 && fcntl(STDERR_FILENO, F_GETFD) != -1;

    // Files are counted before the report itself is opened.
    int otherFiles = 0;
    DIR* const folder = opendir("/dev/fd");
    while (const dirent* entry = readdir(folder))
        otherFiles +=
            entry->d_name[0] != '.' && std::atoi(entry->d_name) > 2 && std::atoi(entry->d_name) != dirfd(folder);
    closedir(folder);

    struct stat input {};
    struct stat null {};
    fstat(STDIN_FILENO, &input);
    stat("/dev/null", &null);

    sigset_t blocked;
    sigprocmask(SIG_SETMASK, nullptr, &blocked);
    int blockedSignals = 0;
    int ignoredSignals = 0;
    for (int signal = 1; signal < NSIG; ++signal) {
        struct sigaction action {};
        blockedSignals += sigismember(&blocked, signal) == 1;
        ignoredSignals += sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
    }

    std::ofstream report(arguments[1]);
    report << "session: " << getsid(0) << '\n'
           << "other files: " << otherFiles << '\n'
           << "input is empty: " << (input.st_rdev == null.st_rdev && S_ISCHR(input.st_mode) ? "yes" : "no") << '\n'
           << "output is open: " << (outputIsOpen ? "yes" : "no") << '\n'
           << "blocked signals: " << blockedSignals << '\n'
           << "ignored signals: " << ignoredSignals << '\n'
           << "variable: " << (std::getenv("HALORIC_PROBE") ? std::getenv("HALORIC_PROBE") : "") << '\n'
           << "process: " << getpid() << '\n'
           << "parent: " << getppid() << '\n';
    for (int index = 2; index < count; ++index)
        report << "argument: " << arguments[index] << '\n';
    return 0;
}
