// The system's standard panels, described as data. Main thread.
#pragma once

#include <optional>
#include <string>

namespace haloric {

struct AboutPanel {
    std::string applicationName;
    std::string applicationVersion;
    std::string version; // of the build; may be empty
    std::string credits;
    double creditsFontSize = 0; // points, in the system font
    friend bool operator==(const AboutPanel&, const AboutPanel&) = default;
};

enum class ContentType { applicationBundle };

struct OpenPanel {
    ContentType allowedContentType = ContentType::applicationBundle;
    std::string directory; // where it opens
    std::string prompt;    // on the button that confirms
    friend bool operator==(const OpenPanel&, const OpenPanel&) = default;
};

class Panels {
public:
    virtual ~Panels() = default;

    // Opens in front; does not block.
    virtual void orderFrontStandardAboutPanel(const AboutPanel& panel) = 0;

    // Blocks until the panel is closed; the main loop runs in its modal mode. The chosen path; absent if cancelled.
    virtual std::optional<std::string> runModalOpenPanel(const OpenPanel& panel) = 0;
};

} // namespace haloric
