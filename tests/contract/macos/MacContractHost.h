// The macOS host under the contract tests, on the current user's desktop. The test program and what started it must be
// trusted for Accessibility; mouse and keyboard are not to be used meanwhile.
#pragma once

#include "contract/macos/ContractWindowProcess.h"
#include "hosts/macos/base/MacBundle.h"
#include "hosts/macos/base/MacLog.h"
#include "hosts/macos/base/MacProcesses.h"
#include "hosts/macos/base/MacUserDefaults.h"
#include "hosts/macos/input/MacInputMonitors.h"
#include "hosts/macos/loop/MacRunLoop.h"
#include "hosts/macos/loop/MacSerialQueues.h"
#include "hosts/macos/overlay/MacToolkitWindows.h"
#include "hosts/macos/refresh/MacDisplayLinks.h"
#include "hosts/macos/refresh/MacScreens.h"
#include "hosts/macos/refresh/MacVideoLinks.h"
#include "hosts/macos/shell/MacApplication.h"
#include "hosts/macos/windows/MacAccessibility.h"
#include "hosts/macos/windows/MacWindowInfoSource.h"
#include "hosts/macos/windows/MacWorkspace.h"
#include "hosts/posix/PosixLibrary.h"
#include "windowserver/LoadedWindowServerCalls.h"

#include <map>

namespace haloric {

class MacContractHost final : public ContractHost {
public:
    MacContractHost();
    ~MacContractHost() override;
    MacContractHost(const MacContractHost&) = delete;
    MacContractHost& operator=(const MacContractHost&) = delete;

    RunLoop& runLoop() override { return m_runLoop; }
    SerialQueues& serialQueues() override { return m_serialQueues; }
    Screens& screens() override { return m_screens; }
    Workspace& workspace() override { return m_workspace; }
    Accessibility& accessibility() override { return m_accessibility; }
    WindowInfoSource& windowInfoSource() override { return m_windowInfoSource; }
    WindowServerCalls& windowServerCalls() override { return m_windowServerCalls; }
    ToolkitWindows& toolkitWindows() override { return m_toolkitWindows; }
    InputMonitors& input() override { return m_input; }
    DisplayLinks& displayLinks() override { return m_displayLinks; }
    bool makesLinksFromScreens() const override { return MacDisplayLinks::areAvailable(); }
    VideoLinks* videoLinks() override { return &m_videoLinks; }
    UserDefaults& userDefaults() override { return m_userDefaults; }
    const Bundle& bundle() override { return m_bundle; }
    Processes& processes() override { return m_processes; }
    Log& log() override { return m_log; }
    ProcessID ownProcess() override { return m_application.processID(); }

    ContractWindow openWindow(const Rect& frame) override;
    void focus(const ContractWindow& window) override;
    void move(const ContractWindow& window, Point topLeft) override;
    void resize(const ContractWindow& window, Size size) override;
    void minimise(const ContractWindow& window) override;
    void close(const ContractWindow& window) override;
    void pressButton() override;
    void releaseButton() override;
    std::optional<Rect> frameOf(const ContractWindow& window) override;
    std::optional<Rect> placeOf(WindowNumber window) override;

    // The user's screens stay as they are.
    bool makeOtherScreenPrimary() override { return false; }
    bool setScale(double) override { return false; }

    bool waitUntil(const std::function<bool()>& holds) override;
    void turnFor(Seconds duration) override;
    std::optional<std::string> storedData(std::string_view key) override;
    std::string loggedText() override;
    std::string knownProgram() override { return "/bin/sh"; }
    std::string unknownProgram() override { return "/nowhere/program"; }

private:
    void turn(Seconds atMost);
    void setFrame(const ContractWindow& window, const Rect& globalFrame);
    Rect flipped(const Rect& rect) const { return flippedVertically(rect, m_screens.all()[0].frame.maxY()); }

    MacApplication m_application; // first: the others expect it
    MacRunLoop m_runLoop;
    MacSerialQueues m_serialQueues;
    MacDisplayLinks m_displayLinks;
    MacVideoLinks m_videoLinks;
    MacWorkspace m_workspace;
    MacScreens m_screens;
    MacAccessibility m_accessibility;
    MacWindowInfoSource m_windowInfoSource;
    PosixLibrary m_windowServerLibrary{CFRelease};
    LoadedWindowServerCalls m_windowServerCalls{m_windowServerLibrary};
    MacToolkitWindows m_toolkitWindows;
    MacInputMonitors m_input;
    MacBundle m_bundle;
    MacUserDefaults m_userDefaults;
    MacProcesses m_processes;
    MacLog m_log;

    std::map<WindowNumber, std::unique_ptr<ContractWindowProcess>> m_windows;
    Point m_pointer; // global space: where buttons are pressed
    std::string m_logPath;
    int m_standardError; // as it was
};

} // namespace haloric
