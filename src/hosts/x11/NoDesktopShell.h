// Stands in where a desktop has no menu bar, hotkeys, login items, updates or panels: nothing is shown, registered or
// found. Main thread.
#pragma once

#include "platform/ApplicationCatalog.h"
#include "platform/FormWindows.h"
#include "platform/Hotkeys.h"
#include "platform/LoginItemService.h"
#include "platform/Panels.h"
#include "platform/StatusItems.h"
#include "platform/UpdaterFramework.h"

namespace haloric {

class NoStatusItems final : public StatusItems {
public:
    std::unique_ptr<StatusItem> make(double) override { return std::make_unique<NoStatusItem>(); }

private:
    class NoStatusItem final : public StatusItem {
    public:
        bool hasButton() const override { return false; }
        void setImage(const Image&) override {}
        void setToolTip(const std::string&) override {}
        void setMenu(const MenuModel&, MenuDelegate&) override {}
        void menuItemsChanged() override {}
    };
};

class NoFormWindows final : public FormWindows {
public:
    std::unique_ptr<FormWindow> make(const FormWindowConfiguration&, const FormModel&) override
    {
        return std::make_unique<NoFormWindow>();
    }

private:
    class NoFormWindow final : public FormWindow {
    public:
        void setForm(const FormModel&) override {}
        void center() override {}
        void makeKeyAndOrderFront() override {}
        bool isVisible() const override { return false; }
    };
};

class NoHotkeys final : public Hotkeys {
public:
    EventHandlerRef installEventHandler(HotkeyEventType, std::function<std::int32_t()>) override
    {
        return EventHandlerRef::none;
    }
    void removeEventHandler(EventHandlerRef) override {}
    HotkeyRef registerHotkey(const Hotkey&, std::uint32_t) override { return HotkeyRef::none; }
    void unregisterHotkey(HotkeyRef) override {}
};

class NoLoginItemService final : public LoginItemService {
public:
    LoginItemStatus status() const override { return LoginItemStatus::notFound; }
    std::optional<PlatformError> registerApplication() override { return missing(); }
    std::optional<PlatformError> unregisterApplication() override { return missing(); }

private:
    static PlatformError missing() { return {"", 0, "This desktop cannot start applications at login.", ""}; }
};

class NoUpdaterFramework final : public UpdaterFramework {
public:
    std::shared_ptr<UpdaterController> makeStandardController(bool, UpdaterDelegate&) override { return nullptr; }
};

class NoPanels final : public Panels {
public:
    void orderFrontStandardAboutPanel(const AboutPanel&) override {}
    std::optional<std::string> runModalOpenPanel(const OpenPanel&) override { return std::nullopt; }
};

class NoApplicationCatalog final : public ApplicationCatalog {
public:
    std::vector<RunningApplication> runningApplications() const override { return {}; }
    std::optional<std::string> applicationPath(std::string_view) const override { return std::nullopt; }
    std::optional<std::string> bundleIdentifier(const std::string&) const override { return std::nullopt; }
    std::string displayName(const std::string& path) const override { return path; }
    int compareLocalizedCaseInsensitive(const std::string& a, const std::string& b) const override
    {
        return a.compare(b);
    }
    bool hasSymbol(std::string_view) const override { return false; }
};

} // namespace haloric
