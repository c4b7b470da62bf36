// Web pages and the like, opened with an application of the test's.
#include "x11/adapters/DesktopAdapters.h"

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

namespace haloric {
namespace {

// Where applications are installed is looked up once a process, so the folder is named before any test.
class HandlerFolder : public testing::Environment {
public:
    void SetUp() override
    {
        std::filesystem::create_directories(s_path / "applications");
        ASSERT_EQ(mkfifo((s_path / "opened").c_str(), 0600), 0);
        std::ofstream(s_path / "opener") << "#!/bin/sh\necho \"$1\" $(grep -E '^Sig(Blk|Ign):' /proc/self/status) > "
                                         << (s_path / "opened").string() << "\n";
        std::filesystem::permissions(s_path / "opener", std::filesystem::perms::owner_all);
        std::ofstream(s_path / "applications" / "opener.desktop")
            << "[Desktop Entry]\nType=Application\nName=Opener\nExec=" << (s_path / "opener").string()
            << " %u\nMimeType=x-scheme-handler/haloric-test;x-scheme-handler/x-apple-test;\n";
        std::ofstream(s_path / "applications" / "mimeapps.list")
            << "[Default Applications]\nx-scheme-handler/haloric-test=opener.desktop\n"
            << "x-scheme-handler/x-apple-test=opener.desktop\n";
        setenv("XDG_DATA_HOME", s_path.c_str(), 1);
    }
    void TearDown() override { std::filesystem::remove_all(s_path); }

    static inline const std::filesystem::path s_path =
        std::filesystem::temp_directory_path() / ("haloric-handlers-" + std::to_string(getpid()));
};

[[maybe_unused]] const auto* const handlerFolder = testing::AddGlobalTestEnvironment(new HandlerFolder);

class AddressOpening : public testing::Test {
protected:
    // What the application says of its start: the address, and the signals that it blocks and ignores.
    std::string nextOpened() const
    {
        pollfd readable{m_pipe, POLLIN, 0};
        if (poll(&readable, 1, static_cast<int>(kTimeout.count())) != 1)
            return "nothing";
        std::string text(200, '\0');
        text.resize(static_cast<std::size_t>(std::max<ssize_t>(read(m_pipe, text.data(), text.size()), 0)));
        return text;
    }
    void TearDown() override { close(m_pipe); }

    X11Session session{WindowManager::none};
    DesktopAdapters adapters{session.display()};

private:
    int m_pipe = open((HandlerFolder::s_path / "opened").c_str(), O_RDWR | O_CLOEXEC);
};

TEST_F(AddressOpening, an_address_is_opened_with_the_application_that_handles_it)
{
    adapters.workspace.openURL("x-apple-test:passed-over");
    adapters.workspace.openURL("haloric-unhandled:passed-over");
    adapters.workspace.openURL("passed over");
    adapters.workspace.openURL("haloric-test:hello");
    EXPECT_THAT(nextOpened(), testing::StartsWith("haloric-test:hello "));
}

TEST_F(AddressOpening, the_application_blocks_and_ignores_no_signal_that_this_program_does)
{
    sigset_t some;
    sigset_t before;
    sigemptyset(&some);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP})
        sigaddset(&some, signal);
    pthread_sigmask(SIG_BLOCK, &some, &before);
    const auto handler = std::signal(SIGPIPE, SIG_IGN);
    adapters.workspace.openURL("haloric-test:signals");
    EXPECT_EQ(nextOpened(), "haloric-test:signals SigBlk: 0000000000000000 SigIgn: 0000000000000000\n");
    std::signal(SIGPIPE, handler);
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

} // namespace
} // namespace haloric
