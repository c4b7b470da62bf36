// The macOS host on a substitute of macOS (testing/macos), under the contract tests. The world of the substitute has
// the other applications.
#include "contract/ContractHost.h"
#include "hosts/macos/base/MacBundle.h"
#include "hosts/macos/base/MacConversions.h"
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
#include "loop/MainLoop.h"
#include "windowserver/LoadedWindowServerCalls.h"
#include "world/World.h"

#import <AppKit/AppKit.h>

#include <fstream>
#include <sstream>

#include <fcntl.h>
#include <unistd.h>

namespace haloric {
namespace {
using substitute::World;

class SubstituteContractHost final : public ContractHost {
public:
    SubstituteContractHost() : m_standardError(::dup(2))
    {
        World::the().reset();
        m_logPath = stringFrom(NSTemporaryDirectory()) + "haloric-contract-log." + std::to_string(::getpid());
        const int file = ::open(m_logPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_APPEND, 0600);
        ::dup2(file, 2);
        ::close(file);
    }
    ~SubstituteContractHost() override
    {
        ::dup2(m_standardError, 2);
        ::close(m_standardError);
        ::unlink(m_logPath.c_str());
        NSUserDefaults* const defaults = NSUserDefaults.standardUserDefaults;
        for (NSString* key in defaults.dictionaryRepresentation.allKeys) {
            if ([key hasPrefix:@"contract."])
                [defaults removeObjectForKey:key];
        }
    }
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

    ContractWindow openWindow(const Rect& frame) override
    {
        static int lastProcess = 5000; // of all hosts: an earlier one's application may still be about to end
        const int pid = ++lastProcess;
        const unsigned number = World::the().open(pid, cgRectFrom(frame));
        World::the().activate(pid, number);
        turnFor(Seconds(0.002));
        return {ProcessID{pid}, WindowNumber{number}};
    }
    void focus(const ContractWindow& w) override
    {
        World::the().activate(static_cast<int>(w.pid), static_cast<unsigned>(w.number));
    }
    void move(const ContractWindow& w, Point p) override
    {
        const Rect now = frameOf(w).value();
        World::the().setFrame(static_cast<unsigned>(w.number), {{p.x, p.y}, {now.width, now.height}});
    }
    void resize(const ContractWindow& w, Size s) override
    {
        const Rect now = frameOf(w).value();
        World::the().setFrame(static_cast<unsigned>(w.number), {{now.x, now.y}, {s.width, s.height}});
    }
    void minimise(const ContractWindow& w) override { World::the().minimise(static_cast<unsigned>(w.number)); }
    void close(const ContractWindow& w) override
    {
        World::the().close(static_cast<unsigned>(w.number));
        // An application of one window ends with it, a little later.
        substitute::onMain([pid = static_cast<int>(w.pid)] { World::the().quit(pid); });
    }
    void pressButton() override { World::the().button(NSEventTypeLeftMouseDown, true); }
    void releaseButton() override { World::the().button(NSEventTypeLeftMouseUp, false); }
    std::optional<Rect> frameOf(const ContractWindow& w) override
    {
        const std::lock_guard guard(World::the().lock);
        const auto* found = World::the().find(static_cast<unsigned>(w.number));
        return found ? std::optional(rectFrom(found->frame)) : std::nullopt;
    }
    std::optional<Rect> placeOf(WindowNumber window) override { return frameOf({ownProcess(), window}); }
    bool makeOtherScreenPrimary() override { return false; }
    bool setScale(double) override { return false; }
    bool waitUntil(const std::function<bool()>& holds) override
    {
        @autoreleasepool {
            const double end = substitute::now() + 10;
            while (!holds()) {
                if (substitute::now() > end)
                    return false;
                substitute::turn(NSDefaultRunLoopMode, substitute::now() + 0.005);
            }
            return true;
        }
    }
    void turnFor(Seconds duration) override
    {
        const double end = substitute::now() + duration.count();
        while (substitute::now() < end)
            substitute::turn(NSDefaultRunLoopMode, end);
    }
    std::optional<std::string> storedData(std::string_view key) override
    {
        NSData* const data = [NSUserDefaults.standardUserDefaults dataForKey:nsStringFrom(key)];
        return data ? std::optional(std::string(static_cast<const char*>(data.bytes), data.length)) : std::nullopt;
    }
    std::string loggedText() override
    {
        std::ostringstream all;
        all << std::ifstream(m_logPath).rdbuf();
        return all.str();
    }
    std::string knownProgram() override { return "/bin/sh"; }
    std::string unknownProgram() override { return "/nowhere/program"; }

private:
    MacApplication m_application;
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
    std::string m_logPath;
    int m_standardError;
};
} // namespace

std::vector<ContractHostFactory> contractHosts()
{
    return {{"MacOSSubstitute",
             []() -> std::unique_ptr<ContractHost> { return std::make_unique<SubstituteContractHost>(); }}};
}
} // namespace haloric
