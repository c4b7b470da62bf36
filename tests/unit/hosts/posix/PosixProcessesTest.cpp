#include "hosts/posix/PosixProcesses.h"

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <vector>

#include <fcntl.h>
#include <poll.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace haloric {
namespace {

namespace fs = std::filesystem;

class PosixProcessesTest : public testing::Test {
protected:
    using Report = std::multimap<std::string, std::string>;

    PosixProcessesTest()
    {
        std::string pattern = (fs::temp_directory_path() / "haloric-processes-XXXXXX").string();
        m_folder = mkdtemp(pattern.data());
        m_pipe = m_folder + "/report";
        mkfifo(m_pipe.c_str(), 0600);
    }
    ~PosixProcessesTest() override { fs::remove_all(m_folder); }

    // Starts the probe and reads its report to the end. Empty when nothing comes within a generous time.
    Report reportOfProbe(std::vector<std::string> arguments = {})
    {
        // Open for both, so that neither side waits for the other; the end is told by the line that comes last.
        const int end = open(m_pipe.c_str(), O_RDWR | O_CLOEXEC);
        arguments.insert(arguments.begin(), m_pipe);
        arguments.emplace_back("end");
        EXPECT_TRUE(processes.launch(HALORIC_PROCESS_PROBE, arguments));
        std::string text;
        pollfd waiting{end, POLLIN, 0};
        while (text.find("argument: end\n") == std::string::npos && poll(&waiting, 1, 60'000) == 1) {
            char part[4096];
            const ssize_t count = read(end, part, sizeof part);
            text.append(part, static_cast<std::size_t>(count));
        }
        close(end);
        return parsed(text);
    }

    static std::string fact(const Report& report, const std::string& name)
    {
        const auto found = report.find(name);
        return found == report.end() ? "absent" : found->second;
    }

    std::string folder() const { return m_folder; }

    PosixProcesses processes;

private:
    static Report parsed(const std::string& text)
    {
        Report report;
        std::istringstream lines(text);
        for (std::string line; std::getline(lines, line);) {
            const std::size_t colon = line.find(": ");
            report.emplace(line.substr(0, colon), line.substr(colon + 2));
        }
        return report;
    }

    std::string m_folder;
    std::string m_pipe;
};

TEST_F(PosixProcessesTest, a_program_gets_its_arguments_as_they_are)
{
    const auto report = reportOfProbe({"-c", "two words", "", "$HOME;\"'", "ü"});
    std::vector<std::string> arguments;
    for (auto [at, last] = report.equal_range("argument"); at != last; ++at)
        arguments.push_back(at->second);
    EXPECT_EQ(arguments, (std::vector<std::string>{"-c", "two words", "", "$HOME;\"'", "ü", "end"}));
}

TEST_F(PosixProcessesTest, a_program_is_no_child_and_has_a_session_of_its_own)
{
    const auto report = reportOfProbe();
    EXPECT_NE(fact(report, "session"), std::to_string(getsid(0)));
    EXPECT_NE(fact(report, "session"), "absent");
    EXPECT_NE(fact(report, "session"), fact(report, "process")) << "it could take a terminal over";
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "a child is left to be waited for";
    EXPECT_EQ(errno, ECHILD);
}

TEST_F(PosixProcessesTest, a_program_inherits_no_file_but_output_and_error)
{
    const int inheritable = open("/dev/null", O_RDONLY);
    const int high = fcntl(inheritable, F_DUPFD, 500);
    const auto report = reportOfProbe();
    close(inheritable);
    close(high);
    EXPECT_EQ(fact(report, "other files"), "0");
    EXPECT_EQ(fact(report, "input is empty"), "yes");
    EXPECT_EQ(fact(report, "output is open"), "yes");
}

TEST_F(PosixProcessesTest, closed_standard_files_are_no_harm)
{
    int kept[3];
    for (int standard = 0; standard < 3; ++standard) {
        kept[standard] = fcntl(standard, F_DUPFD_CLOEXEC, 100);
        close(standard);
    }
    const auto report = reportOfProbe();
    for (int standard = 0; standard < 3; ++standard) {
        dup2(kept[standard], standard);
        close(kept[standard]);
    }
    EXPECT_EQ(fact(report, "input is empty"), "yes");
    EXPECT_EQ(fact(report, "output is open"), "yes");
    EXPECT_EQ(fact(report, "other files"), "0");
}

TEST_F(PosixProcessesTest, a_program_starts_with_no_signal_blocked_or_ignored_and_this_one_keeps_its_own)
{
    sigset_t some;
    sigset_t before;
    sigset_t after;
    sigemptyset(&some);
    sigaddset(&some, SIGTERM);
    sigaddset(&some, SIGUSR1);
    pthread_sigmask(SIG_SETMASK, &some, &before);
    const auto handler = std::signal(SIGPIPE, SIG_IGN);
    const auto report = reportOfProbe();
    std::signal(SIGPIPE, handler);
    pthread_sigmask(SIG_SETMASK, &before, &after);
    EXPECT_EQ(fact(report, "blocked signals"), "0");
    EXPECT_EQ(fact(report, "ignored signals"), "0");
    EXPECT_TRUE(sigismember(&after, SIGTERM));
    EXPECT_TRUE(sigismember(&after, SIGUSR1));
    EXPECT_FALSE(sigismember(&after, SIGINT));
}

TEST_F(PosixProcessesTest, a_program_inherits_the_environment)
{
    setenv("HALORIC_PROBE", "a value", 1);
    EXPECT_EQ(processes.environmentVariable("HALORIC_PROBE"), "a value");
    EXPECT_EQ(fact(reportOfProbe(), "variable"), "a value");
    setenv("HALORIC_PROBE", "", 1);
    EXPECT_EQ(processes.environmentVariable("HALORIC_PROBE"), "");
    unsetenv("HALORIC_PROBE");
    EXPECT_FALSE(processes.environmentVariable("HALORIC_PROBE").has_value());
}

TEST_F(PosixProcessesTest, what_cannot_be_started_is_told)
{
    const std::string noProgram = folder() + "/text";
    std::ofstream(noProgram) << "no program";
    EXPECT_FALSE(processes.launch("/nowhere/at/all", {}));
    EXPECT_FALSE(processes.launch(folder(), {}));
    EXPECT_FALSE(processes.launch(noProgram, {}));
    EXPECT_FALSE(processes.launch("", {}));
    EXPECT_FALSE(processes.launch("true", {})) << "a path, not a name to be searched for";
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
}

TEST_F(PosixProcessesTest, ignored_children_are_no_harm)
{
    const auto handler = std::signal(SIGCHLD, SIG_IGN);
    EXPECT_EQ(fact(reportOfProbe(), "ignored signals"), "0");
    EXPECT_FALSE(processes.launch("/nowhere/at/all", {}));
    std::signal(SIGCHLD, handler);
}

TEST_F(PosixProcessesTest, no_file_stays_open_here)
{
    const auto openFiles = [] { return std::distance(fs::directory_iterator("/dev/fd"), fs::directory_iterator()); };
    const auto before = openFiles();
    reportOfProbe();
    processes.launch("/nowhere/at/all", {});
    EXPECT_EQ(openFiles(), before);
}

// The sanitizer's look at an object's type takes a pipe, for which there is no file left here.
__attribute__((no_sanitize("vptr"))) bool launchUnlookedAt(PosixProcesses& processes)
{
    return processes.launch(HALORIC_PROCESS_PROBE, {});
}

TEST_F(PosixProcessesTest, without_a_free_file_nothing_is_started)
{
    // Few enough to be taken at once, whatever the limit is here.
    rlimit before{};
    getrlimit(RLIMIT_NOFILE, &before);
    const rlimit few{64, before.rlim_max};
    setrlimit(RLIMIT_NOFILE, &few);
    std::vector<int> taken;
    for (int next = open("/dev/null", O_RDONLY); next >= 0; next = open("/dev/null", O_RDONLY))
        taken.push_back(next);
    EXPECT_FALSE(launchUnlookedAt(processes));
    for (const int descriptor : taken)
        close(descriptor);
    setrlimit(RLIMIT_NOFILE, &before);
}

} // namespace
} // namespace haloric
