// A program that is killed during a save always leaves a whole record.
#include "hosts/linux/files/LinuxUserDefaults.h"
#include "settings/SettingsCodec.h"
#include "unit/hosts/linux/files/SettingsSaver.h"
#include "unit/hosts/linux/files/UserDefaultsFolder.h"

#include <atomic>
#include <csignal>
#include <cstdio>
#include <random>
#include <string>

#include <fcntl.h>
#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>

namespace haloric {
namespace {

// The saving program, with the pipe on which it acknowledges.
class Saver {
public:
    enum class Run { Free, Traced };

    Saver(const std::string& folder, int firstNumber, Run run)
    {
        int ends[2];
        EXPECT_EQ(pipe2(ends, O_CLOEXEC), 0);
        const std::string number = std::to_string(firstNumber);
        m_process = fork();
        if (m_process == 0) {
            dup2(ends[1], STDOUT_FILENO);
            execl(HALORIC_SETTINGS_SAVER, HALORIC_SETTINGS_SAVER, folder.c_str(), number.c_str(),
                  run == Run::Traced ? "traced" : nullptr, nullptr);
            _exit(127);
        }
        close(ends[1]);
        m_acknowledgements = ends[0];
    }
    ~Saver() { close(m_acknowledgements); }
    Saver(const Saver&) = delete;
    Saver& operator=(const Saver&) = delete;

    // Waits until that many saves were acknowledged.
    void waitForSaves(int count)
    {
        while (m_saves < count && readSome() > 0) {
        }
    }

    // Waits until the traced program stops after its first save, then continues it to the n-th entry into or return
    // from a system call. Returns false if tracing is forbidden; the program has ended then.
    bool stepThroughSystemCalls(int count)
    {
        int status = 0;
        waitpid(m_process, &status, 0);
        if (!WIFSTOPPED(status))
            return false;
        for (int step = 0; step < count; ++step) {
            ptrace(PTRACE_SYSCALL, m_process, nullptr, nullptr);
            waitpid(m_process, nullptr, 0);
        }
        return true;
    }

    // Kills the program. Returns the number of saves that it had acknowledged.
    int killAndCount()
    {
        kill(m_process, SIGKILL);
        while (readSome() > 0) {
        }
        int status = 0;
        waitpid(m_process, &status, 0);
        EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) << "the program ended by itself";
        return m_saves;
    }

private:
    ssize_t readSome()
    {
        char part[256];
        const ssize_t count = read(m_acknowledgements, part, sizeof part);
        m_saves += static_cast<int>(std::max<ssize_t>(count, 0));
        return count;
    }

    pid_t m_process = -1;
    int m_acknowledgements = -1;
    int m_saves = 0;
};

class LinuxUserDefaultsKillTest : public testing::Test {
protected:
    const UserDefaultsFolder folder;
    int next = 1; // the number of the next record
    int saves = 0;
    int kills = 0;
    int killsBetween = 0; // kills between the creation of the new file and its renaming

    Saver startSaver(Saver::Run run) const { return Saver(folder.path().string(), next, run); }

    // Kills the program and checks the record that it left: the last acknowledged one or the next.
    void killAndCheck(Saver& saver)
    {
        const int acknowledged = saver.killAndCount();
        ++kills;
        saves += acknowledged;
        next += acknowledged;
        const auto bytes = LinuxUserDefaults(folder.path().string()).data(UserDefaultsFolder::kKey);
        if (!bytes) {
            ASSERT_EQ(next, 1) << "kill " << kills << ": the record is gone";
            return;
        }
        const auto settings = SettingsCodec::decode(*bytes);
        ASSERT_TRUE(settings.has_value()) << "kill " << kills << ": half a record of " << bytes->size() << " bytes";
        const int number = static_cast<int>(settings->borderWidth);
        ASSERT_EQ(*settings, numberedSettings(number));
        ASSERT_TRUE(number == next - 1 || number == next) << "kill " << kills << ": " << number << ", not " << next;
        next = number + 1;
        const auto names = folder.names();
        ASSERT_LE(names.size(), 2U) << "each run takes away what the one before it left";
        killsBetween += names.size() == 2 ? 1 : 0;
    }

    void reportAndTidy() const
    {
        std::printf("%d saves, %d kills, %d of them in the middle of a save\n", saves, kills, killsBetween);
        LinuxUserDefaults(folder.path().string()).setData(UserDefaultsFolder::kKey, "{}");
        EXPECT_EQ(folder.names(), std::vector<std::string>{UserDefaultsFolder::kKey});
    }
};

TEST_F(LinuxUserDefaultsKillTest, a_thousand_saves_with_kills_at_random_moments_leave_a_whole_record_every_time)
{
    constexpr std::uint64_t kSeed = 4711;
    std::mt19937_64 random(kSeed);
    while (saves < 1'000 || kills < 150) {
        Saver saver = startSaver(Saver::Run::Free);
        saver.waitForSaves(static_cast<int>(random() % 16));
        // A random moment within the next save or two.
        const std::uint64_t turns = random() % 400'000;
        for (std::atomic<std::uint64_t> turn = 0; turn < turns; ++turn) {
        }
        ASSERT_NO_FATAL_FAILURE(killAndCheck(saver)) << "seed " << kSeed;
    }
    reportAndTidy();
}

TEST_F(LinuxUserDefaultsKillTest, a_kill_between_any_two_steps_of_a_save_leaves_a_whole_record)
{
    constexpr int kStepsOfTwoSaves = 80; // about forty calls; more than one save has
    for (int steps = 0; steps < kStepsOfTwoSaves; ++steps) {
        Saver saver = startSaver(Saver::Run::Traced);
        if (!saver.stepThroughSystemCalls(steps))
            GTEST_SKIP() << "this process may not trace another";
        ASSERT_NO_FATAL_FAILURE(killAndCheck(saver)) << "after " << steps << " steps";
    }
    EXPECT_GT(killsBetween, 5) << "the steps do not reach into the middle of a save";
    reportAndTidy();
}

} // namespace
} // namespace haloric
