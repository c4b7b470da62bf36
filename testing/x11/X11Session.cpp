#include "testing/x11/X11Session.h"

#include "testing/x11/FileContents.h"

#include <fstream>
#include <stdexcept>

namespace haloric {
namespace {

// Window managers of the larger desktops take seconds on a busy machine.
constexpr std::chrono::seconds kStartTimeout{40};

bool needsBus(WindowManager kind)
{
    return kind == WindowManager::xfwm4 || kind == WindowManager::xfwm4Compositing || kind == WindowManager::mutter;
}

constexpr const char* kTilingConfiguration = "i3.conf";
constexpr const char* kTilingOptions = "font pango:DejaVu Sans 10\n"
                                       "focus_follows_mouse no\n"
                                       "bindsym F5 layout tabbed\n"
                                       "bindsym F6 layout splith\n";

} // namespace

std::vector<std::string> X11Session::windowManagerCommand() const
{
    switch (m_kind) {
    case WindowManager::openbox:
        return {"openbox", "--sm-disable"};
    case WindowManager::xfwm4:
        return {"xfwm4", "--compositor=off"};
    case WindowManager::xfwm4Compositing:
        return {"xfwm4", "--compositor=on", "--vblank=off"};
    case WindowManager::metacity:
        return {"metacity", "--sm-disable", "--no-composite"};
    case WindowManager::mutter:
        return {"mutter", "--x11", "--sm-disable"};
    case WindowManager::i3:
        return {"i3", "-c", (m_server->folder() / kTilingConfiguration).string()};
    case WindowManager::none:
        break;
    }
    return {};
}

X11Session::X11Session(WindowManager windowManager, Compositor compositor, const X11ServerOptions& options)
    : m_kind(windowManager),
      m_server(std::make_unique<X11Server>(options)),
      m_environment(m_server->environment()),
      m_observer(std::make_unique<DesktopObserver>(m_server->display())),
      m_input(std::make_unique<TestInput>(*m_observer))
{
    m_observer->setDesktopPicture(ScreenImage({0, 0, 1, 1}, {kDesktopColor}));
    if (needsBus(windowManager))
        startBus();
    startWindowManager();
    if (compositor == Compositor::picom)
        startCompositor();
    // A compositor redirects the screen before it first paints it.
    const auto isPainted = [this] { return m_observer->capture({0, 0, 1, 1}).at(0, 0) == kDesktopColor; };
    if (!m_observer->waitUntil(isPainted, kStartTimeout))
        throw std::runtime_error("the desktop is not painted");
}

X11Session::~X11Session()
{
    m_compositor.reset();
    m_windowManager.reset();
    m_bus.reset();
}

bool X11Session::composites() const
{
    return m_kind == WindowManager::xfwm4Compositing || m_kind == WindowManager::mutter;
}

std::unique_ptr<TestClient> X11Session::makeClient(const TestClient::Options& options)
{
    return std::make_unique<TestClient>(*m_observer, display(), options);
}

void X11Session::startBus()
{
    ChildProcess::Options options{{"dbus-daemon", "--session", "--nofork", "--print-address=1"}, m_environment, {}, -1};
    m_bus = std::make_unique<ChildProcess>(options);
    const auto address = m_bus->waitForLine("unix:");
    if (!address)
        throw std::runtime_error("the message bus does not start: " + m_bus->standardError());
    m_environment["DBUS_SESSION_BUS_ADDRESS"] = *address;
}

std::unique_ptr<ChildProcess> X11Session::start(const std::vector<std::string>& command, const char* logName)
{
    ChildProcess::Options options{command, m_environment, m_server->folder() / logName, -1};
    return std::make_unique<ChildProcess>(options);
}

void X11Session::waitForPart(ChildProcess& process, const char* logName, const std::function<bool()>& isReady)
{
    bool ready = false;
    const auto isDecided = [&] { return (ready = isReady()) || !process.isRunning(); };
    if (!m_observer->waitUntil(isDecided, kStartTimeout) || !ready)
        throw std::runtime_error("a part of the desktop does not start:\n" + contentsOf(m_server->folder() / logName));
}

void X11Session::startWindowManager()
{
    if (m_kind == WindowManager::none)
        return;
    if (m_kind == WindowManager::i3)
        std::ofstream(m_server->folder() / kTilingConfiguration) << kTilingOptions;
    m_windowManager = start(windowManagerCommand(), "window-manager.log");
    const auto isReady = [this] {
        return m_observer->hasWindowManager() && (!composites() || m_observer->compositorDraws()) &&
               m_observer->windowManagerAnswers();
    };
    waitForPart(*m_windowManager, "window-manager.log", isReady);
}

void X11Session::stopWindowManager()
{
    m_windowManager.reset();
    if (!m_observer->waitUntil([this] { return !m_observer->hasWindowManager(); }))
        throw std::runtime_error("the window manager does not end");
}

void X11Session::startCompositor()
{
    const auto configuration = m_server->folder() / "picom.conf";
    std::ofstream(configuration) << "backend = \"xrender\";\nvsync = false;\nshadow = false;\nfading = false;\n";
    m_compositor = start({"picom", "--config", configuration.string()}, "compositor.log");
    waitForPart(*m_compositor, "compositor.log", [this] { return m_observer->compositorDraws(); });
}

void X11Session::stopCompositor()
{
    m_compositor.reset();
    if (!m_observer->waitUntil([this] { return !m_observer->hasCompositor(); }))
        throw std::runtime_error("the compositor does not end");
}

bool X11Session::waitForPixels(const std::string& name, const ScreenRect& area,
                               const std::function<bool(const ScreenImage&)>& predicate,
                               std::chrono::milliseconds timeout)
{
    ScreenImage last;
    const auto isSatisfied = [&] {
        last = m_observer->capture(area);
        return predicate(last);
    };
    if (m_observer->waitUntil(isSatisfied, timeout))
        return true;
    keepFailure(name);
    return false;
}

bool X11Session::dragByTitleBar(TestClient& client, int right, int down)
{
    constexpr int kSteps = 30;
    const ScreenRect frame = client.visibleFrame();
    const ScreenRect content = client.content();
    const int x = frame.x + frame.width / 2;
    const int y = (frame.y + content.y) / 2;
    m_input->moveTo(x, y);
    m_input->press();
    for (int step = 1; step <= kSteps; ++step)
        m_input->moveTo(x + right * step / kSteps, y + down * step / kSteps);
    // Window managers ignore motion from before the drag has begun, so the pointer moves on until the window follows.
    return m_observer->waitUntil([&] {
        m_input->moveTo(x + right - 1, y + down);
        m_input->moveTo(x + right, y + down);
        return client.content().x == content.x + right;
    });
}

void X11Session::keepFailure(const std::string& name)
{
    m_observer->capture().savePng(std::filesystem::path(HALORIC_FAILURE_PICTURES) / (name + ".png"));
}

} // namespace haloric
