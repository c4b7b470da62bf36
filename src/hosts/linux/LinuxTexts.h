// The texts of the user interface on Linux.
#pragma once

#include "settings/HostTexts.h"

namespace haloric {

inline HostTexts linuxTexts()
{
    return {.loginItemToolTip = "Available when Haloric is installed",
            .loginItemFooter = "Launch at login is available when Haloric is installed.",
            .approvalFooter = "Haloric is switched off in the desktop's list of startup programs. The switch above "
                              "turns it on again.",
            .pulseLabel = "Pulse when focus changes or workspace switches",
            .shortcutLabel = "Open Settings with Ctrl+Alt+Super+F from anywhere",
            .shortcutFooter = "Handy when the desktop shows no icon for Haloric."};
}

} // namespace haloric
