// A program that a test starts, in a session of its own. The process and what it started end with this object, or
// when the test itself dies; nothing else is ever signalled.
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
        std::vector<std::string> command = {}; // the program, looked up in PATH, and its arguments
        Environment environment = {};          // the whole environment, nothing is inherited
        std::filesystem::path logFile = {};    // empty: output is captured; else both streams are appended there
        int inheritedDescriptor = -1;          // stays open in the child, under the same number
    };

    // Throws std::runtime_error when no process can be made. A program that cannot be executed exits with 127.
    explicit ChildProcess(const Options& options);
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    pid_t pid() const { return m_pid; }
    bool isRunning();

    // Waits until a line of captured standard output or standard error contains `text`; the line, or none.
    std::optional<std::string> waitForLine(std::string_view text, std::chrono::milliseconds patience = kPatience);

    void signal(int number) const;

    // Waits for the end of the process; its exit code, 128 plus the number of the signal that ended it, or none when
    // it still runs.
    std::optional<int> waitForExit(std::chrono::milliseconds patience = kPatience);

    // Asks for the end by SIGTERM, after `patience` by SIGKILL. The exit code as above.
    int terminate(std::chrono::milliseconds patience = kPatience);

    // What was captured so far.
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
