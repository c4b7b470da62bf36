// Asks the user to grant Accessibility access. Main thread.
#pragma once

#include <string_view>

namespace haloric {

class Accessibility;
class Workspace;

// Opens the Accessibility pane of Privacy & Security in System Settings.
inline constexpr std::string_view kAccessibilitySettingsURL =
    "x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility";

// Has the system show its own request, which also puts the application into the list of the pane, then opens the pane.
// Returns at once; neither failure nor the user's answer is reported.
void grantAccessibility(Accessibility& accessibility, Workspace& workspace);

} // namespace haloric
