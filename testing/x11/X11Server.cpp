#include "testing/x11/X11Server.h"

#include "testing/x11/FileContents.h"

#include <csignal>
#include <cstdlib>
#include <fstream>
#include <stdexcept>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace haloric {
namespace {

// Reads the number and newline that the X server writes once it listens. Empty if the X server ends or after a timeout.
std::string readDisplayNumber(int descriptor)
{
    std::string text;
    const Deadline deadline(std::chrono::seconds(30));
    while (text.find('\n') == std::string::npos) {
        pollfd readable{descriptor, POLLIN, 0};
        if (::poll(&readable, 1, deadline.milliseconds()) <= 0)
            return {};
        char buffer[16];
        const ssize_t count = ::read(descriptor, buffer, sizeof buffer);
        if (count <= 0)
            return {};
        text.append(buffer, static_cast<std::size_t>(count));
    }
    return text.substr(0, text.find('\n'));
}

} // namespace

X11Server::X11Server(const X11ServerOptions& options)
{
    for (const char* name : {"home", "config", "runtime", "cache", "data"})
        m_folder.makeFolder(name);
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0)
        throw std::runtime_error("cannot create a pipe");
    ChildProcess::Options process;
    process.command = command(options, ends[1]);
    process.environment = environment();
    process.logFile = folder() / "server.log";
    process.inheritedDescriptor = ends[1];
    m_process = std::make_unique<ChildProcess>(process);
    ::close(ends[1]);
    const std::string number = readDisplayNumber(ends[0]);
    ::close(ends[0]);
    if (number.empty())
        throw std::runtime_error("the X server does not start:\n" + contentsOf(folder() / "server.log"));
    m_display = ":" + number;
}

std::vector<std::string> X11Server::command(const X11ServerOptions& options, int displayDescriptor) const
{
    // Without -noreset the X server resets when its last client disconnects.
    std::vector<std::string> words{"Xvfb"};
    if (options.kind == X11ServerKind::dummy) {
        // The wrapper in PATH admits only console users.
        words = {"/usr/lib/xorg/Xorg", "-config", writeDummyConfiguration(options).string()};
        words.insert(words.end(), {"-logfile", (folder() / "xorg.log").string(), "-novtswitch", "-sharevts"});
    } else {
        const std::string size = std::to_string(options.width) + "x" + std::to_string(options.height);
        words.insert(words.end(), {"-screen", "0", size + "x24"});
    }
    words.insert(words.end(), {"-nolisten", "tcp", "-ac", "-noreset", "-displayfd", std::to_string(displayDescriptor)});
    words.insert(words.end(), options.arguments.begin(), options.arguments.end());
    return words;
}

std::filesystem::path X11Server::writeDummyConfiguration(const X11ServerOptions& options) const
{
    const auto path = folder() / "xorg.conf";
    const std::string mode = std::to_string(options.width) + "x" + std::to_string(options.height);
    std::ofstream(path) << R"(Section "ServerFlags"
    Option "AutoAddDevices" "false"
    Option "AutoEnableDevices" "false"
    Option "DontVTSwitch" "true"
EndSection
Section "Device"
    Identifier "device"
    Driver "dummy"
    VideoRam 256000
EndSection
Section "Monitor"
    Identifier "monitor"
    HorizSync 5.0-1000.0
    VertRefresh 5.0-200.0
EndSection
Section "Screen"
    Identifier "screen"
    Device "device"
    Monitor "monitor"
    DefaultDepth 24
    SubSection "Display"
        Depth 24
        Modes ")" << mode
                        << R"("
        Virtual 7680 4320
    EndSubSection
EndSection
)";
    return path;
}

Environment X11Server::environment() const
{
    const char* path = std::getenv("PATH");
    const auto inside = [this](const char* name) { return (folder() / name).string(); };
    Environment environment{
        {"PATH", path == nullptr ? "/usr/local/bin:/usr/bin:/bin" : path},
        {"LANG", "C.UTF-8"},
        {"HOME", inside("home")},
        {"XDG_CONFIG_HOME", inside("config")},
        {"XDG_CACHE_HOME", inside("cache")},
        {"XDG_DATA_HOME", inside("data")},
        {"XDG_RUNTIME_DIR", inside("runtime")},
        // An address without a bus, so that libraries do not start one.
        {"DBUS_SESSION_BUS_ADDRESS", "unix:path=" + inside("runtime") + "/no-bus"},
        {"NO_AT_BRIDGE", "1"},
    };
    if (!m_display.empty())
        environment["DISPLAY"] = m_display;
    for (const char* name : {"ASAN_OPTIONS", "UBSAN_OPTIONS", "TSAN_OPTIONS", "LSAN_OPTIONS"}) {
        if (const char* value = std::getenv(name))
            environment[name] = value;
    }
    return environment;
}

bool X11Server::xrandr(const std::vector<std::string>& arguments)
{
    ChildProcess::Options options{{"xrandr"}, environment(), folder() / "xrandr.log", -1};
    options.command.insert(options.command.end(), arguments.begin(), arguments.end());
    return ChildProcess(options).waitForExit() == 0;
}

void X11Server::kill()
{
    m_process->signal(SIGKILL);
    m_process->waitForExit();
}

} // namespace haloric
