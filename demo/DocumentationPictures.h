// Makes the pictures of the README and the user guide from the running program, on private desktops.
#pragma once

#include "demo/SampleDesktop.h"
#include "testing/x11/HaloricProcess.h"
#include "testing/x11/ProgramShell.h"

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace haloric {

class DocumentationPictures {
public:
    // Writes the pictures of `program` to `folder` and creates it if necessary.
    DocumentationPictures(std::filesystem::path folder, std::filesystem::path program)
        : m_folder(std::move(folder)),
          m_program(std::move(program))
    {
    }

    // Throws std::runtime_error when an effect or a window is not visible.
    void run();

private:
    struct Windows {
        std::unique_ptr<TestClient> notes;
        std::unique_ptr<TestClient> terminal;
        std::unique_ptr<TestClient> gallery;
    };

    void showEffects();
    void showWhole(SampleDesktop& desktop, TestClient& focused, const char* name, const std::string& settings);
    void showTitleBar(SampleDesktop& desktop, TestClient& focused, const char* name, const std::string& settings);
    void showPulse(SampleDesktop& desktop, Windows& windows);
    void showMenu(SampleDesktop& desktop, TestClient& focused);
    void showSettings(SampleDesktop& desktop, const char* name);
    void showSections(SampleDesktop& desktop);
    HaloricProcess start(SampleDesktop& desktop, const std::string& settings,
                         const std::vector<std::string>& arguments = {});
    void keep(const ScreenImage& picture, const std::string& name, const std::string& description);

    std::filesystem::path m_folder;
    std::filesystem::path m_program;
};

} // namespace haloric
