#include "app/AppControl.h"

#include "platform/Application.h"
#include "platform/Bundle.h"
#include "platform/Processes.h"

#include <string>

namespace haloric {

void AppControl::restart(const Bundle& bundle, Processes& processes, Application& application)
{
    if (bundle.path().ends_with(".app")) {
        // The pause lets this instance end first. It ends even if the shell cannot be launched.
        processes.launch("/bin/sh", {"-c", "sleep 0.4; " + bundle.relaunchCommand()});
    }
    application.terminate();
}

} // namespace haloric
