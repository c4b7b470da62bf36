// A host under the contract tests: its adapters, and verbs that act on the desktop by other means than the adapters.
// One exists at a time. Main thread.
#pragma once

#include "foundation/Geometry.h"
#include "foundation/Ids.h"
#include "foundation/Time.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace haloric {

class Accessibility;
class Bundle;
class DisplayLinks;
class InputMonitors;
class Log;
class Processes;
class RunLoop;
class Screens;
class SerialQueues;
class ToolkitWindows;
class UserDefaults;
class VideoLinks;
class WindowInfoSource;
class WindowServerCalls;
class Workspace;

// A window of another application, by the numbers that the adapters are to report.
struct ContractWindow {
    ProcessID pid = ProcessID::none;
    WindowNumber number = WindowNumber::none;
};

class ContractHost {
public:
    virtual ~ContractHost() = default;

    virtual RunLoop& runLoop() = 0;
    virtual SerialQueues& serialQueues() = 0;
    virtual Screens& screens() = 0;
    virtual Workspace& workspace() = 0;
    virtual Accessibility& accessibility() = 0;
    virtual WindowInfoSource& windowInfoSource() = 0;
    virtual WindowServerCalls& windowServerCalls() = 0;
    virtual ToolkitWindows& toolkitWindows() = 0;
    virtual InputMonitors& input() = 0;
    virtual DisplayLinks& displayLinks() = 0;
    virtual bool makesLinksFromScreens() const = 0;
    virtual VideoLinks* videoLinks() = 0; // null if the host needs none
    virtual UserDefaults& userDefaults() = 0;
    virtual const Bundle& bundle() = 0;
    virtual Processes& processes() = 0;
    virtual Log& log() = 0;

    // This process, the owner of the overlays.
    virtual ProcessID ownProcess() = 0;

    // Starts a new application with one window, which has the focus when this returns. The frame (global space) is a
    // request; `frameOf` returns the actual one.
    virtual ContractWindow openWindow(const Rect& frame) = 0;

    // These send requests; tests wait for the effect.
    virtual void focus(const ContractWindow& window) = 0;
    virtual void move(const ContractWindow& window, Point topLeft) = 0; // of the visible frame
    virtual void resize(const ContractWindow& window, Size size) = 0;
    virtual void minimise(const ContractWindow& window) = 0;
    virtual void close(const ContractWindow& window) = 0;
    virtual void pressButton() = 0; // the left one
    virtual void releaseButton() = 0;

    // The visible frame in global space, read by other means than the adapters'; absent when the window is gone.
    virtual std::optional<Rect> frameOf(const ContractWindow& window) = 0;

    // The rectangle of a window of this process in global space, as the window server holds it; absent when there is
    // none of that number. Global space is that of the screens as the verbs below have arranged them.
    virtual std::optional<Rect> placeOf(WindowNumber window) = 0;

    // Changes the screens while the program runs: another one becomes the primary one, away from the place of the
    // present one; or the primary one gets that many pixels a point. False if this desktop cannot.
    virtual bool makeOtherScreenPrimary() = 0;
    virtual bool setScale(double pixelsPerPoint) = 0;

    // Runs the main loop until the predicate holds; false when it does not within the host's time limit.
    virtual bool waitUntil(const std::function<bool()>& holds) = 0;

    // Runs the main loop for about this long, for what must not happen.
    virtual void turnFor(Seconds duration) = 0;

    // What is stored under a key of the user defaults, read by other means than the adapter's: what the next start of
    // the program finds.
    virtual std::optional<std::string> storedData(std::string_view key) = 0;

    // The lines written to the log.
    virtual std::string loggedText() = 0;

    // The path of an existing program, and of a missing one.
    virtual std::string knownProgram() = 0;
    virtual std::string unknownProgram() = 0;
};

// How the suites make a host.
struct ContractHostFactory {
    std::string name;
    std::unique_ptr<ContractHost> (*make)();
};

// The hosts that the suites run on. Each host's test program defines this, beside the suites' sources
// (HALORIC_CONTRACT_SOURCES).
std::vector<ContractHostFactory> contractHosts();

} // namespace haloric
