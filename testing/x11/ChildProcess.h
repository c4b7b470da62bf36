// A process that a test starts, in its own session. The destructor ends it and its process group; the kernel ends it
// when the test process dies. No other process is ever signalled. One thread.
#pragma once

#include "testing/x11/Deadline.h"

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <sys/types.h>

namespace haloric {

using Environment = std::map<std::string, std::string>;

class ChildProcess {
public:
    struct Options {
        std::vector<std::string> command = {}; // the program, searched in PATH, and its arguments
        Environment environment = {};          // the whole environment; no variable is inherited
        std::filesystem::path logFile = {};    // empty: output is captured; otherwise both streams append here
        int inheritedDescriptor = -1;          // stays open in the child under the same number; -1: none
    };

    // Throws std::runtime_error when no process can be created. A program that cannot be executed exits with 127.
    explicit ChildProcess(const Options& options);
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    pid_t pid() const { return m_pid; }
    bool isRunning();

    // Waits until a captured line of standard output or standard error contains `text`, and returns that line without
    // its newline. No value after `timeout`, or when both streams end first.
    std::optional<std::string> waitForLine(std::string_view text, std::chrono::milliseconds timeout = kTimeout);

    void signal(int number) const;

    // Waits for the end of the process. Returns its exit code, or 128 plus the number of the signal that ended it; no
    // value if it still runs after `timeout`.
    std::optional<int> waitForExit(std::chrono::milliseconds timeout = kTimeout);

    // Sends SIGTERM, and SIGKILL after `timeout`. Returns the exit code as waitForExit() does.
    int terminate(std::chrono::milliseconds timeout = kTimeout);

    // The output captured so far.
    const std::string& standardOutput();
    const std::string& standardError();

private:
    struct Stream {
        int descriptor = -1;
        std::string text;
    };

    [[noreturn]] void execute(const Options& options, int outputDescriptor, int errorDescriptor) const;
    bool readAvailable();
    bool reap(int options);

    pid_t m_pid = -1;
    int m_pidDescriptor = -1;
    std::optional<int> m_exitCode;
    Stream m_output;
    Stream m_error;
};

} // namespace haloric
