#include "contract/ContractHost.h"

#include "hosts/sim/input/SimInputMonitors.h"
#include "hosts/sim/overlay/SimToolkitWindows.h"
#include "hosts/sim/refresh/SimDisplayLinks.h"
#include "hosts/sim/refresh/SimScreens.h"
#include "hosts/sim/shell/SimBundle.h"
#include "hosts/sim/shell/SimLog.h"
#include "hosts/sim/shell/SimProcesses.h"
#include "hosts/sim/shell/SimUserDefaults.h"
#include "hosts/sim/windows/SimAccessibility.h"
#include "hosts/sim/windows/SimWindowInfoSource.h"
#include "hosts/sim/windows/SimWindowServerCalls.h"
#include "hosts/sim/windows/SimWorkspace.h"

namespace haloric {

namespace {

class SimContractHost final : public ContractHost {
public:
    SimContractHost()
    {
        m_desktop.model.screens = {{DisplayID{1}, {0, 0, 1440, 900}, 60, 2},
                                   {DisplayID{2}, {1440, 0, 800, 600}, 60, 1}};
    }

    ~SimContractHost() override { m_desktop.runLoop.discardPending(); }

    RunLoop& runLoop() override { return m_desktop.runLoop; }
    SerialQueues& serialQueues() override { return m_serialQueues; }
    Screens& screens() override { return m_screens; }
    Workspace& workspace() override { return m_workspace; }
    Accessibility& accessibility() override { return m_accessibility; }
    WindowInfoSource& windowInfoSource() override { return m_windowInfoSource; }
    WindowServerCalls& windowServerCalls() override { return m_windowServerCalls; }
    ToolkitWindows& toolkitWindows() override { return m_toolkitWindows; }
    InputMonitors& input() override { return m_input; }
    DisplayLinks& displayLinks() override { return m_displayLinks; }
    bool makesLinksFromScreens() const override { return m_displayLinks.makesLinksFromScreens(); }
    VideoLinks* videoLinks() override { return &m_displayLinks; }
    UserDefaults& userDefaults() override { return m_userDefaults; }
    const Bundle& bundle() override { return m_bundle; }
    Processes& processes() override { return m_processes; }
    Log& log() override { return m_log; }
    ProcessID ownProcess() override { return SimModel::kOwnProcess; }

    ContractWindow openWindow(const Rect& frame) override
    {
        SimApp& app = m_desktop.applications.launch("Application " + std::to_string(++m_applications), std::nullopt);
        SimWindow window;
        window.frame = frame;
        const SimWindow& opened = m_desktop.windows.open(app, window);
        m_desktop.runLoop.runPosted();
        return {app.pid, opened.number};
    }

    void focus(const ContractWindow& window) override { m_desktop.windows.focus(record(window)); }

    void move(const ContractWindow& window, Point topLeft) override
    {
        SimWindow& moved = record(window);
        m_desktop.windows.setFrame(moved, {topLeft.x, topLeft.y, moved.frame.width, moved.frame.height});
    }

    void resize(const ContractWindow& window, Size size) override
    {
        SimWindow& resized = record(window);
        m_desktop.windows.setFrame(resized, {resized.frame.x, resized.frame.y, size.width, size.height});
    }

    void minimise(const ContractWindow& window) override { m_desktop.windows.minimise(record(window)); }

    void close(const ContractWindow& window) override
    {
        // An application of one window ends with it, a little later.
        m_desktop.windows.close(record(window));
        m_desktop.runLoop.postAfter(Seconds(0.01), [this, pid = window.pid] {
            if (SimApp* app = m_desktop.model.app(pid))
                m_desktop.applications.quit(*app);
        });
    }

    void pressButton() override { m_desktop.pointer.press(SimButton::left); }
    void releaseButton() override { m_desktop.pointer.release(SimButton::left); }

    std::optional<Rect> frameOf(const ContractWindow& window) override
    {
        const SimWindow* found = m_desktop.model.windows.find(window.number);
        return found ? std::optional(found->frame) : std::nullopt;
    }

    std::optional<Rect> placeOf(WindowNumber window) override { return frameOf({ownProcess(), window}); }

    bool makeOtherScreenPrimary() override
    {
        m_desktop.screens.makePrimary(m_desktop.model.screens[1].id);
        return true;
    }

    bool setScale(double pixelsPerPoint) override
    {
        m_desktop.screens.setScale(m_desktop.model.screens[0].id, pixelsPerPoint);
        return true;
    }

    bool waitUntil(const std::function<bool()>& holds) override
    {
        constexpr Seconds kPatience{10};
        const Seconds limit = m_desktop.runLoop.systemUptime() + kPatience;
        while (!holds()) {
            if (!m_desktop.runLoop.runNext() || m_desktop.runLoop.systemUptime() > limit)
                return holds();
        }
        return true;
    }

    void turnFor(Seconds duration) override { m_desktop.runLoop.runFor(duration); }

    std::optional<std::string> storedData(std::string_view key) override { return m_userDefaults.data(key); }

    std::string loggedText() override
    {
        std::string text;
        for (const auto& line : m_log.lines())
            text += line + "\n";
        return text;
    }

    std::string knownProgram() override { return "/bin/sh"; }
    std::string unknownProgram() override { return "/nowhere/program"; }

private:
    SimWindow& record(const ContractWindow& window) { return *m_desktop.model.windows.find(window.number); }

    SimDesktop m_desktop;
    SimSerialQueues m_serialQueues{m_desktop.runLoop};
    SimScreens m_screens{m_desktop};
    SimWorkspace m_workspace{m_desktop};
    SimAccessibility m_accessibility{m_desktop, m_serialQueues};
    SimWindowInfoSource m_windowInfoSource{m_desktop};
    SimWindowServerCalls m_windowServerCalls{m_desktop};
    SimToolkitWindows m_toolkitWindows{m_desktop};
    SimInputMonitors m_input{m_desktop};
    SimDisplayLinks m_displayLinks{m_desktop};
    SimUserDefaults m_userDefaults{m_desktop};
    SimBundle m_bundle;
    SimProcesses m_processes{m_desktop};
    SimLog m_log{m_desktop};
    int m_applications = 0;
};

} // namespace

std::vector<ContractHostFactory> contractHosts()
{
    return {{"Sim", []() -> std::unique_ptr<ContractHost> { return std::make_unique<SimContractHost>(); }}};
}

} // namespace haloric
