#include "contract/shell/x11/X11ContractServices.h"

#include "hosts/linux/files/DesktopEntries.h"
#include "testing/x11/FileContents.h"
#include "testing/x11/Key.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>

#include <QApplication>
#include <QMessageBox>

namespace haloric {

namespace {

constexpr std::uint32_t kKeyF = 3;

std::filesystem::path folderNamedBy(const char* variable)
{
    const char* folder = std::getenv(variable);
    return folder ? folder : "";
}

} // namespace

Subscription ContractFeed::fetch(const std::string&, std::function<void(const AppcastDownload&)> done)
{
    return m_runLoop.scheduleOnce(Seconds(0.02), [done = std::move(done)] {
        const auto report = done; // it ends this timer
        report({.bytes = {}, .error = "The feed cannot be reached."});
    });
}

std::optional<std::string> ContractFeed::infoString(std::string_view key) const
{
    if (key == "SUFeedURL")
        return "https://localhost/feed.xml";
    return key == "CFBundleVersion" ? std::optional<std::string>("1") : std::nullopt;
}

X11ContractServices::X11ContractServices(QtUser& user, X11Connection& connection, LinuxRunLoop& runLoop,
                                         X11Desktop& desktop, QtForeground& foreground)
    : m_user(user),
      m_desktop(desktop),
      m_hotkeys(connection, desktop.keyboard, runLoop),
      m_loginItems(LinuxLoginItemService::standardFolder(m_processes), "/usr/bin/true"),
      m_userDefaults(LinuxUserDefaults::standardFolder(m_processes)),
      m_feed(runLoop),
      m_alerts(foreground),
      m_progress(foreground),
      m_updaterFramework({.runLoop = runLoop,
                          .source = m_feed,
                          .progress = m_progress,
                          .alerts = m_alerts,
                          .workspace = desktop.workspace,
                          .userDefaults = m_userDefaults,
                          .runInBackground = [this](Task work) { m_background.run(std::move(work)); }},
                         m_feed)
{
}

void X11ContractServices::pressKeys(const Hotkey& combination)
{
    constexpr std::pair<std::uint32_t, std::uint32_t> kKeys[] = {{HotkeyModifiers::kControl, Key::kControl},
                                                                 {HotkeyModifiers::kOption, Key::kAlt},
                                                                 {HotkeyModifiers::kShift, Key::kShift},
                                                                 {HotkeyModifiers::kCommand, Key::kSuper}};
    std::vector<std::uint32_t> keys;
    for (const auto& [modifier, key] : kKeys)
        if ((combination.modifiers & modifier) != 0)
            keys.push_back(key);
    keys.push_back(combination.keyCode == kKeyF ? 'f' : 'g');
    m_user.turnFor(Seconds(0.005)); // the server repeats a held key with equal times; a person is slower
    m_user.session().input().chord(keys);
}

bool X11ContractServices::startsAtLogin()
{
    const auto folder = folderNamedBy("XDG_CONFIG_HOME") / "autostart";
    std::error_code missing;
    for (const auto& entry : std::filesystem::directory_iterator(folder, missing))
        if (contentsOf(entry.path()).find("Exec=/usr/bin/true") != std::string::npos)
            return true;
    return false;
}

bool X11ContractServices::confirmsUpdateResult()
{
    const auto isOpen = [] {
        return std::ranges::any_of(QApplication::topLevelWidgets(), [](const QWidget* window) {
            return window->isVisible() && qobject_cast<const QMessageBox*>(window);
        });
    };
    return m_user.waitUntil(isOpen) && m_user.click("OK") && m_user.waitUntil([&] { return !isOpen(); });
}

std::string X11ContractServices::install(const std::string& bundleIdentifier, const std::string& name)
{
    const auto folder = folderNamedBy("XDG_DATA_HOME") / "applications";
    std::filesystem::create_directories(folder);
    const std::string path = folder / (bundleIdentifier + ".desktop");
    std::ofstream(path) << "[Desktop Entry]\nType=Application\nExec=true\nName=" << name << "\nStartupWMClass=" << name
                        << "\n";
    // GLib notices new entries on another thread.
    if (!m_user.waitUntil([&] { return DesktopEntries::pathOf(bundleIdentifier) == path; }))
        throw std::runtime_error("the application is not installed");
    return path;
}

void X11ContractServices::start(const std::string& bundleIdentifier)
{
    const auto path = DesktopEntries::pathOf(bundleIdentifier);
    const auto application = path ? DesktopEntries::at(*path) : std::nullopt;
    if (!application)
        throw std::runtime_error("the application is not installed");
    auto client =
        m_user.session().makeClient({.className = application->name, .application = TestClient::Application::ownOne});
    if (!m_user.waitFor([&client] { return client->show(); }))
        throw std::runtime_error("the application shows no window");
    m_running[bundleIdentifier] = std::move(client);
}

} // namespace haloric
