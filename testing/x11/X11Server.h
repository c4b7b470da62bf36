// A private X server on a free display number that the X server chooses. The destructor ends it.
#pragma once

#include "testing/x11/ChildProcess.h"
#include "testing/x11/TemporaryFolder.h"

#include <memory>
#include <string>
#include <vector>

namespace haloric {

enum class X11ServerKind {
    xvfb,  // one screen in memory
    dummy, // Xorg with the dummy video driver: outputs DUMMY0, DUMMY1 …, switched by xrandr
};

struct X11ServerOptions {
    X11ServerKind kind = X11ServerKind::xvfb;
    int width = 1920;
    int height = 1080;
    std::vector<std::string> arguments = {}; // additional, such as {"-extension", "Composite"}
};

class X11Server {
public:
    // Returns when the server accepts clients. Throws std::runtime_error with the server's log otherwise.
    explicit X11Server(const X11ServerOptions& options = {});

    // The value of DISPLAY, for instance ":3".
    const std::string& display() const { return m_display; }
    pid_t pid() const { return m_process->pid(); }

    // An environment for the server's clients: the display, PATH, a private HOME and XDG folders, no session bus.
    Environment environment() const;
    const std::filesystem::path& folder() const { return m_folder.path(); }

    // Runs `xrandr` with these arguments and waits for its end. True on success.
    [[nodiscard]] bool xrandr(const std::vector<std::string>& arguments);

    // Ends the server by SIGKILL, as a crash does. Use only the destructor afterwards.
    void kill();

private:
    std::vector<std::string> command(const X11ServerOptions& options, int displayDescriptor) const;
    std::filesystem::path writeDummyConfiguration(const X11ServerOptions& options) const;

    TemporaryFolder m_folder;
    std::unique_ptr<ChildProcess> m_process;
    std::string m_display;
};

} // namespace haloric
