// A host's own user interface under the contract tests: its adapters, and verbs that do what a user does and read what
// a user sees, by other means than the adapters. The verbs wait until the action has arrived, running the main loop;
// tests wait for its effect. One exists at a time. Main thread.
#pragma once

#include "foundation/Color.h"
#include "foundation/Time.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace haloric {

class Alerts;
class ApplicationCatalog;
class FormWindows;
class Hotkeys;
class LoginItemService;
class Panels;
class RunLoop;
class StatusItems;
class UpdaterFramework;
struct Hotkey;

// An item of a menu as it is shown.
struct ContractMenuItem {
    std::string title;
    bool isEnabled = true;
    bool isOn = false;
    std::vector<ContractMenuItem> submenu = {};
    friend bool operator==(const ContractMenuItem&, const ContractMenuItem&) = default;
};

class ContractMenuBar {
public:
    virtual ~ContractMenuBar() = default;

    virtual StatusItems& statusItems() = 0;

    virtual bool showsItem() = 0;
    virtual std::string toolTip() = 0; // of the item

    // Opens the item's menu, reads the items that can be seen, without separators, and closes it.
    virtual std::vector<ContractMenuItem> readMenu() = 0;

    // Opens the menu and chooses the item that these titles lead to. False if it cannot be chosen; the menu is closed.
    virtual bool choose(const std::vector<std::string>& titles) = 0;
};

// What a control shows, or is set to: nothing (a button), whether it is on, the place of a slider's knob from 0 to 1, a
// colour of 8 bits a component, or an option of a picker or a menu.
using ContractValue = std::variant<std::monostate, bool, double, Color, std::string>;

struct ContractControl {
    std::string label; // in its row or on it
    bool isEnabled = true;
    ContractValue value = {};
    std::vector<std::string> options = {}; // of a picker
};

class ContractForms {
public:
    virtual ~ContractForms() = default;

    virtual FormWindows& formWindows() = 0;

    // The control with that id in a window on screen; absent when there is none.
    virtual std::optional<ContractControl> control(const std::string& id) = 0;

    // Uses the control. A slider's knob can be set to 0, 0.5 and 1. False when it is missing or disabled.
    virtual bool use(const std::string& id, const ContractValue& value = {}) = 0;

    // Moves the keyboard focus to the control; false if that cannot be.
    virtual bool moveFocusTo(const std::string& id) = 0;

    // The id of the control with the keyboard focus; empty without one.
    virtual std::string focusedControl() = 0;

    // Closes the only window by its close button.
    virtual void closeWindow() = 0;
};

class ContractDialogs {
public:
    virtual ~ContractDialogs() = default;

    virtual Alerts& alerts() = 0;
    virtual Panels& panels() = 0;

    // Calls `act` once, from the main loop, when a modal dialog is open; `act` ends it by one of the verbs below.
    virtual void whenOpen(std::function<void()> act) = 0;

    // Of the open alert: its two texts, those of its buttons in the order of the model, and a press of one.
    virtual std::vector<std::string> texts() = 0;
    virtual std::vector<std::string> buttons() = 0;
    virtual void press(const std::string& button) = 0;

    // Ends the open panel with an installed application, or without one.
    virtual void chooseApplication(const std::string& path) = 0;
    virtual void cancelPanel() = 0;

    // The texts of the About panel, from top to bottom; empty while it is not on screen.
    virtual std::vector<std::string> aboutTexts() = 0;
};

class ContractServices {
public:
    virtual ~ContractServices() = default;

    virtual Hotkeys& hotkeys() = 0;
    virtual LoginItemService& loginItems() = 0;
    virtual UpdaterFramework& updaterFramework() = 0;
    virtual ApplicationCatalog& applicationCatalog() = 0;

    // Presses the keys of a combination and releases them. The key is F or G.
    virtual void pressKeys(const Hotkey& combination) = 0;

    // Whether the next login starts the program.
    virtual bool startsAtLogin() = 0;

    // Whether a check for updates has shown its result; the result is confirmed.
    virtual bool confirmsUpdateResult() = 0;

    // Installs an application, and starts it with a window. Returns its path.
    virtual std::string install(const std::string& bundleIdentifier, const std::string& name) = 0;
    virtual void start(const std::string& bundleIdentifier) = 0;
};

class ContractShell {
public:
    virtual ~ContractShell() = default;

    virtual RunLoop& runLoop() = 0;
    virtual ContractMenuBar& menuBar() = 0;
    virtual ContractForms& forms() = 0;
    virtual ContractDialogs& dialogs() = 0;
    virtual ContractServices& services() = 0;

    // As those of ContractHost.
    virtual bool waitUntil(const std::function<bool()>& holds) = 0;
    virtual void turnFor(Seconds duration) = 0;
};

struct ContractShellFactory {
    std::string name;
    std::unique_ptr<ContractShell> (*make)();
};

// The hosts that the suites run on, defined as contractHosts() is (HALORIC_SHELL_CONTRACT_SOURCES).
std::vector<ContractShellFactory> contractShells();

// Ends what the hosts share between tests. Called once, after the last test.
void endContractShells();

} // namespace haloric
