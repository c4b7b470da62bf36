// A desktop with a tray, a focused window and the program, and the record that the program stores.
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
    // From now on the program that is started is an installed one, with this in its information dictionary.
    void install(const ProgramBundle::Information& information = {}) { bundle.emplace(session, information); }

    // Opens a window, starts the program around it and puts it into the tray.
    void startInTray(const std::string& settings = kStill);

    // What the file holds now; none while there is no such file.
    std::optional<Settings> stored();
    [[nodiscard]] bool waitForStored(const std::function<bool(const Settings&)>& predicate);

    // Waits until the pixel shows that colour.
    [[nodiscard]] bool waitForPixel(int x, int y, Pixel color);
    [[nodiscard]] bool waitForOtherPixel(int x, int y, Pixel color);
    Pixel pixelAt(int x, int y) { return session.observer().capture({x, y, 1, 1}).at(x, y); }

    // Starts the program, or its bundle, with these arguments, and waits for its end; its exit code.
    std::optional<int> startAnother(const std::vector<std::string>& arguments);

    // Returns after the running program has come back to its loop and answered there, so after what it did before.
    void waitUntilIdle() { EXPECT_EQ(startAnother({"--print-settings"}), 0); }

    TrayPanel panel{session};
    std::optional<ProgramBundle> bundle; // where it was installed
    std::unique_ptr<TestClient> client;
    std::optional<ProgramShell> shell;
};

Pixel pixelOf(const RGBA& color);

} // namespace haloric
