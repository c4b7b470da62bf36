// The X11 host under the contract tests, on a private X server with a window manager and a compositor, where each
// window belongs to a separate process. The verbs go through the window manager and the input devices; their effect is
// read over the observer's connection, which the adapters do not use.
//
// While a verb waits for the window manager, the main loop runs, so that the adapters handle every event in between.
#pragma once

#include "contract/ContractHost.h"
#include "contract/ScopedVariable.h"
#include "hosts/linux/files/LinuxBundle.h"
#include "hosts/linux/files/LinuxUserDefaults.h"
#include "hosts/linux/loop/LinuxSerialQueues.h"
#include "hosts/posix/PosixProcesses.h"
#include "hosts/posix/StandardErrorLog.h"
#include "testing/x11/TemporaryFolder.h"
#include "x11/adapters/DesktopAdapters.h"

#include <map>

namespace haloric {

class X11ContractHost final : public ContractHost {
public:
    explicit X11ContractHost(WindowManager windowManager, Compositor compositor = Compositor::none);
    ~X11ContractHost() override;

    RunLoop& runLoop() override { return m_desktop.loop; }
    SerialQueues& serialQueues() override { return m_serialQueues; }
    Screens& screens() override { return m_desktop.screens; }
    Workspace& workspace() override { return m_desktop.workspace; }
    Accessibility& accessibility() override { return m_desktop.accessibility; }
    WindowInfoSource& windowInfoSource() override { return m_desktop.windowInfoSource; }
    WindowServerCalls& windowServerCalls() override { return m_desktop.windowServerCalls; }
    ToolkitWindows& toolkitWindows() override { return m_desktop.toolkitWindows; }
    InputMonitors& input() override { return m_desktop.input; }
    DisplayLinks& displayLinks() override { return m_desktop.displayLinks; }
    bool makesLinksFromScreens() const override { return true; }
    VideoLinks* videoLinks() override { return nullptr; }
    UserDefaults& userDefaults() override { return m_userDefaults; }
    const Bundle& bundle() override { return m_bundle; }
    Processes& processes() override { return m_processes; }
    Log& log() override { return m_log; }
    ProcessID ownProcess() override;

    ContractWindow openWindow(const Rect& frame) override;
    void focus(const ContractWindow& window) override;
    void move(const ContractWindow& window, Point topLeft) override;
    void resize(const ContractWindow& window, Size size) override;
    void minimise(const ContractWindow& window) override;
    void close(const ContractWindow& window) override;
    void pressButton() override { m_session.input().press(); }
    void releaseButton() override { m_session.input().release(); }
    std::optional<Rect> frameOf(const ContractWindow& window) override;
    std::optional<Rect> placeOf(WindowNumber window) override;
    bool makeOtherScreenPrimary() override;
    bool setScale(double pixelsPerPoint) override;
    bool waitUntil(const std::function<bool()>& holds) override { return m_desktop.waitUntil(holds); }
    void turnFor(Seconds duration) override;
    std::optional<std::string> storedData(std::string_view key) override;
    std::string loggedText() override;
    std::string knownProgram() override { return "/bin/sh"; }
    std::string unknownProgram() override { return "/nowhere/program"; }

private:
    TestClient& client(const ContractWindow& window) { return *m_clients.at(window.number); }
    void ask(const std::string& verb, const std::function<bool()>& answer);
    void setFrame(const std::string& verb, const ContractWindow& window, const ScreenRect& frame);

    TemporaryFolder m_folder;
    ScopedVariable m_configurationFolder{"XDG_CONFIG_HOME", m_folder.path().string()};
    X11Session m_session;
    std::map<WindowNumber, std::unique_ptr<TestClient>> m_clients;
    Point m_origin; // of global space, in pixels of the root
    double m_scale = 1;

    // In the order in which the program makes them.
    int m_logFile;
    StandardErrorLog m_log{m_logFile};
    PosixProcesses m_processes;
    DesktopAdapters m_desktop{m_session.display()};
    LinuxSerialQueues m_serialQueues{m_desktop.loop};
    LinuxBundle m_bundle;
    LinuxUserDefaults m_userDefaults{LinuxUserDefaults::standardFolder(m_processes)};
};

} // namespace haloric
