// Requests Accessibility access from the user. Main thread.
#pragma once

#include <string_view>

namespace haloric {

class Accessibility;
class Workspace;

// Opens the Accessibility pane of Privacy & Security in System Settings.
inline constexpr std::string_view kAccessibilitySettingsURL =
    "x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility";

// Makes the system show its request, which also adds the application to the list of the pane, then opens the pane.
// Returns at once; neither failure nor the user's answer is reported.
void grantAccessibility(Accessibility& accessibility, Workspace& workspace);

} // namespace haloric
