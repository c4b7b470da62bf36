// Texts of the user interface that name what only one system has. The initial values are those of macOS.
#pragma once

#include <string>

namespace haloric {

struct HostTexts {
    std::string loginItemToolTip = "Available when running from Haloric.app";
    std::string loginItemFooter = "Launch at login is available when running from Haloric.app.";
    std::string approvalFooter = {}; // while the login item waits for the user's approval; empty: none
    std::string pulseLabel = "Pulse when focus changes or Space switches";
    std::string shortcutLabel = "Open Settings with ⌃⌥⌘F from anywhere";
    std::string shortcutFooter = "Handy when the menu-bar icon is hidden behind the notch.";
};

} // namespace haloric
