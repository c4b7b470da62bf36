// What the settings window's content needs from outside; everything outlives the view.
#pragma once

#include "foundation/Task.h"
#include "settings/HostTexts.h"

namespace haloric {

class Accessibility;
class Alerts;
class Application;
class ApplicationCatalog;
class Bundle;
class LoginItemService;
class Panels;
class Workspace;

struct SettingsViewDependencies {
    const Bundle& bundle;
    const ApplicationCatalog& applications;
    LoginItemService& loginItems;
    Accessibility& accessibility;
    Workspace& workspace;
    Panels& panels;
    Alerts& alerts;
    Application& application;
    Task restart; // ends the program and has it opened again
    HostTexts texts = {};
};

} // namespace haloric
