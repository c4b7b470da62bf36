#include "testing/x11/ChildProcess.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <stdexcept>

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace haloric {
namespace {

constexpr int kCannotExecute = 127;
constexpr int kSignalExitBase = 128;

struct Pipe {
    int read = -1;
    int write = -1;
};

Pipe makePipe()
{
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0)
        throw std::runtime_error("cannot create a pipe");
    ::fcntl(ends[0], F_SETFL, O_NONBLOCK);
    return {ends[0], ends[1]};
}

std::vector<char*> pointersTo(std::vector<std::string>& texts)
{
    std::vector<char*> pointers;
    for (std::string& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

std::optional<std::string> lineContaining(const std::string& text, std::string_view part)
{
    const auto found = text.find(part);
    if (found == std::string::npos)
        return std::nullopt;
    const auto end = text.find('\n', found);
    if (end == std::string::npos)
        return std::nullopt;
    const auto before = found == 0 ? std::string::npos : text.rfind('\n', found - 1);
    const auto start = before == std::string::npos ? 0 : before + 1;
    return text.substr(start, end - start);
}

} // namespace

ChildProcess::ChildProcess(const Options& options)
{
    Pipe output = makePipe();
    Pipe error = makePipe();
    const pid_t parent = ::getpid();
    m_pid = ::fork();
    if (m_pid < 0)
        throw std::runtime_error("cannot create a process");
    if (m_pid == 0) {
        ::setsid();
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);
        if (::getppid() != parent)
            ::_exit(kCannotExecute);
        execute(options, output.write, error.write);
    }
    ::close(output.write);
    ::close(error.write);
    m_output.descriptor = output.read;
    m_error.descriptor = error.read;
    m_pidDescriptor = static_cast<int>(::syscall(SYS_pidfd_open, m_pid, 0));
}

ChildProcess::~ChildProcess()
{
    terminate();
    for (const int descriptor : {m_output.descriptor, m_error.descriptor, m_pidDescriptor}) {
        if (descriptor >= 0)
            ::close(descriptor);
    }
}

void ChildProcess::execute(const Options& options, int outputDescriptor, int errorDescriptor) const
{
    if (!options.logFile.empty())
        outputDescriptor = errorDescriptor = ::open(options.logFile.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0600);
    const int input = ::open("/dev/null", O_RDONLY);
    ::dup2(input, STDIN_FILENO);
    ::dup2(outputDescriptor, STDOUT_FILENO);
    ::dup2(errorDescriptor, STDERR_FILENO);
    if (options.inheritedDescriptor >= 0)
        ::fcntl(options.inheritedDescriptor, F_SETFD, 0);

    std::vector<std::string> command = options.command;
    std::vector<std::string> variables;
    for (const auto& [name, value] : options.environment)
        variables.push_back(name + "=" + value);
    const auto arguments = pointersTo(command);
    const auto environment = pointersTo(variables);
    ::execvpe(arguments[0], arguments.data(), environment.data());
    std::fprintf(stderr, "cannot execute %s: %s\n", arguments[0], std::strerror(errno));
    ::_exit(kCannotExecute);
}

bool ChildProcess::isRunning() { return !reap(WNOHANG); }

bool ChildProcess::reap(int options)
{
    if (m_exitCode)
        return true;
    siginfo_t ended{};
    if (::waitid(P_PID, static_cast<id_t>(m_pid), &ended, WEXITED | WNOWAIT | options) != 0 || ended.si_pid == 0)
        return false;
    // Ends the rest of the process group before the process is reaped: until then its group number is not reused.
    ::kill(-m_pid, SIGKILL);
    int status = 0;
    ::waitpid(m_pid, &status, 0);
    m_exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : kSignalExitBase + WTERMSIG(status);
    return true;
}

bool ChildProcess::readAvailable()
{
    bool anyOpen = false;
    for (Stream* stream : {&m_output, &m_error}) {
        char buffer[4096];
        while (stream->descriptor >= 0) {
            const ssize_t count = ::read(stream->descriptor, buffer, sizeof buffer);
            if (count > 0) {
                stream->text.append(buffer, static_cast<std::size_t>(count));
                continue;
            }
            if (count < 0 && (errno == EAGAIN || errno == EINTR))
                break;
            ::close(stream->descriptor);
            stream->descriptor = -1;
        }
        anyOpen = anyOpen || stream->descriptor >= 0;
    }
    return anyOpen;
}

std::optional<std::string> ChildProcess::waitForLine(std::string_view text, std::chrono::milliseconds timeout)
{
    const Deadline deadline(timeout);
    while (true) {
        const bool more = readAvailable();
        for (const Stream* stream : {&m_output, &m_error}) {
            if (auto line = lineContaining(stream->text, text))
                return line;
        }
        if (!more || deadline.isOver())
            return std::nullopt;
        pollfd streams[] = {{m_output.descriptor, POLLIN, 0}, {m_error.descriptor, POLLIN, 0}};
        ::poll(streams, 2, deadline.milliseconds());
    }
}

void ChildProcess::signal(int number) const
{
    if (!m_exitCode)
        ::kill(m_pid, number);
}

std::optional<int> ChildProcess::waitForExit(std::chrono::milliseconds timeout)
{
    const Deadline deadline(timeout);
    while (!reap(WNOHANG) && !deadline.isOver()) {
        readAvailable(); // a full pipe would block the process
        pollfd ended[] = {
            {m_pidDescriptor, POLLIN, 0}, {m_output.descriptor, POLLIN, 0}, {m_error.descriptor, POLLIN, 0}};
        ::poll(ended, 3, deadline.milliseconds());
    }
    readAvailable();
    return m_exitCode;
}

int ChildProcess::terminate(std::chrono::milliseconds timeout)
{
    signal(SIGTERM);
    if (!waitForExit(timeout)) {
        signal(SIGKILL);
        reap(0);
    }
    return *m_exitCode;
}

const std::string& ChildProcess::standardOutput()
{
    readAvailable();
    return m_output.text;
}

const std::string& ChildProcess::standardError()
{
    readAvailable();
    return m_error.text;
}

} // namespace haloric
