// The installed program on a private desktop. HALORIC_INSTALLED_PROGRAM is its path.
#include "hosts/linux/files/LinuxBundle.h"
#include "testing/x11/X11Session.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace haloric {
namespace {

std::filesystem::path installedProgram()
{
    const char* path = std::getenv("HALORIC_INSTALLED_PROGRAM");
    return path ? path : "HALORIC_INSTALLED_PROGRAM is not set";
}

bool isAround(const RootChild& window, const ScreenRect& frame)
{
    const ScreenRect& outer = window.geometry;
    return outer.x < frame.x && outer.y < frame.y && outer.right() > frame.right() && outer.bottom() > frame.bottom();
}

TEST(InstalledProgram, it_is_a_bundle_with_an_identifier_a_version_and_an_icon)
{
    const LinuxBundle bundle(std::filesystem::canonical(installedProgram()));
    EXPECT_TRUE(bundle.path().ends_with("/usr/lib/haloric/Haloric.app")) << bundle.path();
    EXPECT_EQ(bundle.identifier(), "com.kestrow.haloric");
    EXPECT_EQ(bundle.infoString("CFBundleName"), "Haloric");
    EXPECT_EQ(bundle.infoString("CFBundleShortVersionString"), HALORIC_VERSION);
    EXPECT_TRUE(bundle.infoString("CFBundleVersion").has_value());
    const std::filesystem::path folder = bundle.path();
    EXPECT_TRUE(is_regular_file(folder / bundle.infoString("CFBundleExecutable").value_or("none")));
    EXPECT_TRUE(is_regular_file(folder / bundle.infoString("CFBundleIconFile").value_or("none")));
}

TEST(InstalledProgram, it_surrounds_the_focused_window_and_ends_on_a_signal)
{
    X11Session session(WindowManager::openbox);
    const auto client = session.makeClient();
    ASSERT_TRUE(client->showFocused());
    ChildProcess program({{installedProgram().string()}, session.environment(), {}, -1});
    const auto isHighlighted = [&] {
        for (const RootChild& window : session.observer().overlaysOf(program.pid()))
            if (isAround(window, client->visibleFrame()))
                return true;
        return !program.isRunning();
    };
    EXPECT_TRUE(session.observer().waitUntil(isHighlighted));
    EXPECT_TRUE(program.isRunning()) << program.standardError();
    EXPECT_EQ(program.terminate(), 0) << program.standardError();
}

// The line "key=value" of the installed desktop entry; empty if there is none.
std::string desktopEntryValue(const std::string& key)
{
    const auto data = installedProgram().parent_path().parent_path() / "share";
    std::ifstream file(data / "applications" / "com.kestrow.haloric.desktop");
    for (std::string line; std::getline(file, line);)
        if (line.starts_with(key + "="))
            return line.substr(key.size() + 1);
    return {};
}

TEST(InstalledProgram, its_desktop_entry_claims_its_windows)
{
    X11Session session(WindowManager::openbox);
    DesktopObserver& observer = session.observer();
    const ChildProcess program({{installedProgram().string(), "--settings"}, session.environment(), {}, -1});
    ASSERT_TRUE(observer.waitUntil([&] { return !observer.clientList().empty(); }));
    const std::string names = observer.text(observer.clientList().front(), "WM_CLASS");
    const std::string instanceName = names.substr(0, names.find('\0'));
    EXPECT_NE(instanceName, "");
    EXPECT_EQ(desktopEntryValue("StartupWMClass"), instanceName);
}

} // namespace
} // namespace haloric
