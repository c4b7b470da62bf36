// Operations on bundle identifiers, for the lists of applications in the settings window. Main thread.
#pragma once

#include "platform/Image.h"

#include <string>
#include <string_view>
#include <vector>

namespace haloric {

class ApplicationCatalog;
class Bundle;

namespace AppInfo {

// The bundle identifiers of the ordinary applications that run now, each once and without this application's own, in
// the order of their display names as the user's language sorts them, regardless of case.
std::vector<std::string> runningApps(const ApplicationCatalog& catalog, const Bundle& ownBundle);

// The name that the desktop shows for the application, with every ".app" removed; the identifier itself when it is not
// installed.
std::string displayName(const ApplicationCatalog& catalog, std::string_view bundleIdentifier);

// The application's icon; the system's symbol for an application when it is not installed; empty without that too.
Image icon(const ApplicationCatalog& catalog, std::string_view bundleIdentifier);

} // namespace AppInfo

} // namespace haloric
