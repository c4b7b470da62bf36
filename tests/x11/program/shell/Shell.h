// The fixture of the tests of the user interface: a desktop with a tray, a focused window and the program, and the
// stored record.
#pragma once

#include "settings/Settings.h"
#include "testing/x11/ProgramBundle.h"
#include "testing/x11/ProgramShell.h"
#include "x11/program/scenes/Scene.h"

#include <functional>
#include <optional>

namespace haloric {

class Shell : public Scene {
protected:
    // Later starts use an installed program, with this in its Info.plist.
    void install(const ProgramBundle::Information& information = {}) { bundle.emplace(session, information); }

    // Opens a window, starts the program and waits for the highlight.
    void startInTray(const std::string& settings = kStill);

    // The stored record; no value while there is no valid file.
    std::optional<Settings> stored();
    [[nodiscard]] bool waitForStored(const std::function<bool(const Settings&)>& predicate);

    void press(std::uint32_t key) { session.input().chord({key}); }
    Pixel pixelAt(int x, int y) { return session.observer().capture({x, y, 1, 1}).at(x, y); }

    // Starts the program, or its bundle, with these arguments and waits for its end. Returns its exit code.
    std::optional<int> startAnother(const std::vector<std::string>& arguments);

    // Returns after the running program has replied to a command from its run loop, so after its earlier work.
    void waitUntilIdle() { EXPECT_EQ(startAnother({"--print-settings"}), 0); }

    TrayPanel panel{session};
    std::optional<ProgramBundle> bundle; // no value: not installed
    std::unique_ptr<TestClient> client;
    std::optional<ProgramShell> shell;
};

Pixel pixelOf(const RGBA& color);

} // namespace haloric
