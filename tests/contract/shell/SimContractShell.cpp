#include "contract/shell/ContractShell.h"

#include "hosts/sim/form/SimFormWindows.h"
#include "hosts/sim/input/SimHotkeys.h"
#include "hosts/sim/shell/SimAlerts.h"
#include "hosts/sim/shell/SimLoginItemService.h"
#include "hosts/sim/shell/SimMenuSearch.h"
#include "hosts/sim/shell/SimPanels.h"
#include "hosts/sim/shell/SimStatusItems.h"
#include "hosts/sim/shell/SimUpdaterFramework.h"
#include "hosts/sim/windows/SimApplicationCatalog.h"

#include <algorithm>

namespace haloric {

namespace {

class SimContractMenuBar final : public ContractMenuBar {
public:
    explicit SimContractMenuBar(SimDesktop& desktop) : m_items(desktop) {}

    StatusItems& statusItems() override { return m_items; }
    bool showsItem() override { return m_items.hasItem(); }
    std::string toolTip() override { return m_items.toolTip(); }

    std::vector<ContractMenuItem> readMenu() override
    {
        const MenuModel* menu = m_items.openMenu();
        return menu ? shown(menu->items) : std::vector<ContractMenuItem>();
    }

    bool choose(const std::vector<std::string>& titles) override { return m_items.choose(titles.back()); }

private:
    static std::vector<ContractMenuItem> shown(const std::vector<MenuItem>& items)
    {
        std::vector<ContractMenuItem> all;
        for (const MenuItem& item : items)
            if (!item.isSeparator && !item.isHidden)
                all.push_back({item.title, item.isEnabled, item.isOn, shown(item.submenu)});
        return all;
    }

    SimStatusItems m_items;
};

// What a control shows, from its model.
struct ShownControl {
    ContractControl operator()(const FormToggle& toggle) const { return {toggle.label, toggle.isEnabled, toggle.isOn}; }

    ContractControl operator()(const FormSlider& slider) const
    {
        const double value = std::clamp(slider.value, slider.minimum, slider.maximum);
        return {slider.label, true, (value - slider.minimum) / (slider.maximum - slider.minimum)};
    }

    ContractControl operator()(const FormColorWell& well) const { return {well.label, well.isEnabled, well.color}; }

    ContractControl operator()(const FormPicker& picker) const
    {
        return {picker.label, true, picker.options.at(picker.selected), picker.options};
    }

    ContractControl operator()(const FormListRow& row) const { return {.label = row.title}; }

    ContractControl operator()(const FormMenu& menu) const { return {.label = menu.label}; }
    ContractControl operator()(const FormButton& button) const { return {.label = button.label}; }
};

class SimContractForms final : public ContractForms {
public:
    explicit SimContractForms(SimDesktop& desktop) : m_desktop(desktop), m_windows(desktop) {}

    FormWindows& formWindows() override { return m_windows; }

    std::optional<ContractControl> control(const std::string& id) override
    {
        const FormControl* found = m_windows.control(id);
        return found ? std::optional(std::visit(ShownControl(), *found)) : std::nullopt;
    }

    bool use(const std::string& id, const ContractValue& value) override
    {
        const FormControl* found = m_windows.control(id);
        const auto* slider = found ? std::get_if<FormSlider>(found) : nullptr;
        const auto* place = std::get_if<double>(&value);
        if (slider && place)
            return m_windows.change(id, slider->minimum + *place * (slider->maximum - slider->minimum));
        return m_windows.change(id, value);
    }

    bool moveFocusTo(const std::string& id) override
    {
        m_focused = id;
        return m_windows.control(id) != nullptr;
    }

    std::string focusedControl() override { return m_windows.control(m_focused) ? m_focused : std::string(); }

    void closeWindow() override
    {
        const SimApp& own = *m_desktop.model.app(SimModel::kOwnProcess);
        m_desktop.windows.close(*m_desktop.model.windows.find(own.focused));
    }

private:
    SimDesktop& m_desktop;
    SimFormWindows m_windows;
    std::string m_focused; // this desktop gives the focus to windows only
};

class SimContractDialogs final : public ContractDialogs {
public:
    explicit SimContractDialogs(SimDesktop& desktop) : m_alerts(desktop), m_panels(desktop) {}

    Alerts& alerts() override { return m_alerts; }
    Panels& panels() override { return m_panels; }

    void whenOpen(std::function<void()> act) override
    {
        const Task once = [this, act = std::move(act)] {
            const auto now = act;
            m_alerts.modal.user = nullptr;
            m_panels.modal.user = nullptr;
            now();
        };
        m_alerts.modal.user = once;
        m_panels.modal.user = once;
    }

    std::vector<std::string> texts() override
    {
        return {m_alerts.lastAlert()->messageText, m_alerts.lastAlert()->informativeText};
    }

    std::vector<std::string> buttons() override { return m_alerts.lastAlert()->buttons; }

    void press(const std::string& button) override
    {
        const std::vector<std::string> all = buttons();
        m_alerts.willAnswer(static_cast<std::size_t>(std::ranges::find(all, button) - all.begin()));
        m_alerts.modal.end();
    }

    void chooseApplication(const std::string& path) override
    {
        m_panels.willChoose(path);
        m_panels.modal.end();
    }

    void cancelPanel() override { m_panels.modal.end(); }

    std::vector<std::string> aboutTexts() override
    {
        if (!m_panels.about())
            return {};
        const AboutPanel& about = *m_panels.about();
        return {about.applicationName, about.applicationVersion + " (" + about.version + ")", about.credits};
    }

private:
    SimAlerts m_alerts;
    SimPanels m_panels;
};

class SimContractServices final : public ContractServices {
public:
    explicit SimContractServices(SimDesktop& desktop)
        : m_desktop(desktop),
          m_hotkeys(desktop),
          m_loginItems(desktop),
          m_updaterFramework(desktop),
          m_catalog(desktop)
    {
    }

    Hotkeys& hotkeys() override { return m_hotkeys; }
    LoginItemService& loginItems() override { return m_loginItems; }
    UpdaterFramework& updaterFramework() override { return m_updaterFramework; }
    ApplicationCatalog& applicationCatalog() override { return m_catalog; }

    void pressKeys(const Hotkey& combination) override
    {
        constexpr std::pair<std::uint32_t, std::uint64_t> kMasks[] = {
            {HotkeyModifiers::kCommand, ModifierFlags::kCommand},
            {HotkeyModifiers::kShift, ModifierFlags::kShift},
            {HotkeyModifiers::kOption, ModifierFlags::kOption},
            {HotkeyModifiers::kControl, ModifierFlags::kControl}};
        std::uint64_t flags = 0;
        for (const auto& [modifier, flag] : kMasks)
            flags |= (combination.modifiers & modifier) != 0 ? flag : 0;
        m_desktop.keyboard.press(combination.keyCode, flags);
    }

    bool startsAtLogin() override { return m_loginItems.currentStatus == LoginItemStatus::enabled; }

    bool confirmsUpdateResult() override
    {
        const auto shown = static_cast<int>(std::ranges::count(
            m_desktop.journal.entries(), "updates looked for, none found", &SimJournal::Entry::text));
        return shown == ++m_confirmedResults;
    }

    // What runs is what is installed here.
    std::string install(const std::string& bundleIdentifier, const std::string& name) override
    {
        m_desktop.applications.launch(name, bundleIdentifier);
        return "/Applications/" + name + ".app";
    }

    void start(const std::string&) override {}

private:
    SimDesktop& m_desktop;
    SimHotkeys m_hotkeys;
    SimLoginItemService m_loginItems;
    SimUpdaterFramework m_updaterFramework;
    SimApplicationCatalog m_catalog;
    int m_confirmedResults = 0;
};

class SimContractShell final : public ContractShell {
public:
    SimContractShell() { m_desktop.model.screens = {{DisplayID{1}, {0, 0, 1440, 900}, 60, 2}}; }
    ~SimContractShell() override { m_desktop.runLoop.discardPending(); }

    RunLoop& runLoop() override { return m_desktop.runLoop; }
    ContractMenuBar& menuBar() override { return m_menuBar; }
    ContractForms& forms() override { return m_forms; }
    ContractDialogs& dialogs() override { return m_dialogs; }
    ContractServices& services() override { return m_services; }

    bool waitUntil(const std::function<bool()>& holds) override
    {
        while (!holds())
            if (!m_desktop.runLoop.runNext())
                return false;
        return true;
    }

    void turnFor(Seconds duration) override { m_desktop.runLoop.runFor(duration); }

private:
    SimDesktop m_desktop;
    SimContractMenuBar m_menuBar{m_desktop};
    SimContractForms m_forms{m_desktop};
    SimContractDialogs m_dialogs{m_desktop};
    SimContractServices m_services{m_desktop};
};

} // namespace

std::vector<ContractShellFactory> contractShells()
{
    return {{"Sim", []() -> std::unique_ptr<ContractShell> { return std::make_unique<SimContractShell>(); }}};
}

void endContractShells() {}

} // namespace haloric
