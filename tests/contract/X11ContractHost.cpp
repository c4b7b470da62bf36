#include "contract/X11ContractHost.h"

#include "testing/x11/FileContents.h"

#include <cmath>
#include <filesystem>
#include <fstream>
#include <future>
#include <sstream>
#include <stdexcept>

#include <fcntl.h>
#include <unistd.h>

namespace haloric {
namespace {

constexpr const char* kLogName = "log";
constexpr double kDotsPerInch = 96; // at scale 1

int openLog(const TemporaryFolder& folder)
{
    const int file = ::open((folder.path() / kLogName).c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
    if (file < 0)
        throw std::runtime_error("cannot make a log file");
    return file;
}

// Points of the global space as root pixels, on a desktop with one unscaled screen.
ScreenRect pixelsOf(const Rect& rect)
{
    const auto rounded = [](double length) { return static_cast<int>(std::lround(length)); };
    return {rounded(rect.x), rounded(rect.y), rounded(rect.width), rounded(rect.height)};
}

} // namespace

X11ContractHost::X11ContractHost(WindowManager windowManager, Compositor compositor)
    : m_session(windowManager, compositor),
      m_logFile(openLog(m_folder))
{
}

X11ContractHost::~X11ContractHost() { ::close(m_logFile); }

ProcessID X11ContractHost::ownProcess() { return ProcessID{::getpid()}; }

// On another thread, because the main loop runs meanwhile. Only that thread uses the session until it has answered,
// which it does at the latest when its time limit has passed.
void X11ContractHost::ask(const std::string& verb, const std::function<bool()>& answer)
{
    auto answered = std::async(std::launch::async, answer);
    while (answered.wait_for(Seconds(0)) != std::future_status::ready)
        m_desktop.loop.turn(Seconds(0.01));
    if (!answered.get()) // no failure of the adapters, but the rest of the test would mean nothing
        throw std::runtime_error("the desktop does not " + verb + " the window");
}

ContractWindow X11ContractHost::openWindow(const Rect& frame)
{
    auto made = m_session.makeClient({.title = "Application " + std::to_string(m_clients.size() + 1),
                                      .content = pixelsOf(frame),
                                      .application = TestClient::Application::ownOne});
    TestClient& client = *made;
    const auto pid = m_session.observer().value(client.window(), "_NET_WM_PID").value();
    const ContractWindow window{static_cast<ProcessID>(pid), static_cast<WindowNumber>(client.window())};
    m_clients[window.number] = std::move(made);

    ask("show", [&client] { return client.show(); });
    ask("focus", [&client] { return client.focus(); });
    m_desktop.settle();
    const ScreenRect inside = client.content();
    m_session.input().moveTo(inside.x + inside.width / 2, inside.y + inside.height / 2); // buttons are pressed here
    return window;
}

void X11ContractHost::focus(const ContractWindow& window)
{
    ask("focus", [&] { return client(window).focus(); });
}

void X11ContractHost::move(const ContractWindow& window, Point topLeft)
{
    const Rect now = frameOf(window).value();
    setFrame("move", window, pixelsOf({topLeft.x, topLeft.y, now.width, now.height}));
}

void X11ContractHost::resize(const ContractWindow& window, Size size)
{
    const Rect now = frameOf(window).value();
    setFrame("resize", window, pixelsOf({now.x, now.y, size.width, size.height}));
}

void X11ContractHost::setFrame(const std::string& verb, const ContractWindow& window, const ScreenRect& frame)
{
    const auto [left, right, top, bottom] = client(window).frameExtents();
    const ScreenRect inside{frame.x + left, frame.y + top, frame.width - left - right, frame.height - top - bottom};
    ask(verb, [&] { return client(window).setContent(inside); });
}

void X11ContractHost::minimise(const ContractWindow& window)
{
    ask("minimise", [&] { return client(window).minimise(); });
}

void X11ContractHost::close(const ContractWindow& window)
{
    ask("close", [&] { return client(window).close(); });
    m_clients.erase(window.number); // an application of one window ends with it
}

std::optional<Rect> X11ContractHost::frameOf(const ContractWindow& window)
{
    if (!m_clients.contains(window.number))
        return std::nullopt;
    const ScreenRect frame = client(window).visibleFrame();
    return frame.width > 0 && frame.height > 0 ? std::optional(pointsOf(frame)) : std::nullopt;
}

std::optional<Rect> X11ContractHost::placeOf(WindowNumber window)
{
    const ScreenRect place = m_session.observer().rectOnRoot(static_cast<xcb_window_t>(window));
    if (place.width == 0)
        return std::nullopt;
    return Rect{(place.x - m_origin.x) / m_scale, (place.y - m_origin.y) / m_scale, place.width / m_scale,
                place.height / m_scale};
}

// The right half of the screen becomes a screen, and the primary one.
bool X11ContractHost::makeOtherScreenPrimary()
{
    m_origin = {960, 80};
    return m_session.server().xrandr({"--setmonitor", "left", "960/250x1080/280+0+0", "screen"}) &&
           m_session.server().xrandr({"--setmonitor", "*right", "960/250x1000/280+960+80", "none"});
}

bool X11ContractHost::setScale(double pixelsPerPoint)
{
    m_scale = pixelsPerPoint;
    const auto dotsPerInch = static_cast<int>(std::lround(kDotsPerInch * pixelsPerPoint));
    m_session.observer().setText(m_session.observer().root(), "RESOURCE_MANAGER",
                                 "Xft.dpi:\t" + std::to_string(dotsPerInch) + "\n");
    m_session.observer().synchronize();
    return true;
}

void X11ContractHost::turnFor(Seconds duration)
{
    const Seconds end = m_desktop.loop.systemUptime() + duration;
    while (m_desktop.loop.systemUptime() < end)
        m_desktop.loop.turn(std::min(end - m_desktop.loop.systemUptime(), Seconds(0.01)));
}

std::optional<std::string> X11ContractHost::storedData(std::string_view key)
{
    const auto file = std::filesystem::path(LinuxUserDefaults::standardFolder(m_processes)) / key;
    return std::filesystem::exists(file) ? std::optional(contentsOf(file)) : std::nullopt;
}

std::string X11ContractHost::loggedText()
{
    std::ostringstream text;
    text << std::ifstream(m_folder.path() / kLogName).rdbuf();
    return text.str();
}

std::vector<ContractHostFactory> contractHosts()
{
    // A window manager with a separate compositor, and one that composites itself.
    return {{"X11Openbox",
             []() -> std::unique_ptr<ContractHost> {
                 return std::make_unique<X11ContractHost>(WindowManager::openbox, Compositor::picom);
             }},
            {"X11Xfwm4", []() -> std::unique_ptr<ContractHost> {
                 return std::make_unique<X11ContractHost>(WindowManager::xfwm4Compositing);
             }}};
}

} // namespace haloric
