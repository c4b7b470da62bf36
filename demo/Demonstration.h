// Demonstrates the program's effects on a private desktop with three sample windows, and writes pictures of them.
#pragma once

#include "testing/x11/HaloricProcess.h"
#include "testing/x11/X11Session.h"

#include <filesystem>
#include <memory>
#include <string>

namespace haloric {

class Demonstration {
public:
    // Writes the pictures to `folder` and creates it if necessary.
    explicit Demonstration(std::filesystem::path folder);

    // Throws std::runtime_error when an effect is not visible.
    void run();

private:
    void start(const std::string& settings);
    void stop();
    void focus(TestClient& client);
    void showFocus();
    void showPulse();
    void showDrag();
    void showDimming(const char* name, const char* description, const std::string& settings);
    void keep(const ScreenImage& picture, const char* name, const char* description);

    std::filesystem::path m_folder;
    X11Session m_session;
    std::unique_ptr<TestClient> m_notes;
    std::unique_ptr<TestClient> m_gallery;
    std::unique_ptr<TestClient> m_terminal;
    std::unique_ptr<HaloricProcess> m_haloric;
};

} // namespace haloric
