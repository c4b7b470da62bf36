#include "settings/AccessibilityGrant.h"

#include "platform/Accessibility.h"
#include "platform/Workspace.h"

namespace haloric {

void grantAccessibility(Accessibility& accessibility, Workspace& workspace)
{
    accessibility.isProcessTrustedWithPrompt(true);
    workspace.openURL(kAccessibilitySettingsURL);
}

} // namespace haloric
