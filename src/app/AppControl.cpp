#include "app/AppControl.h"

#include "platform/Application.h"
#include "platform/Bundle.h"
#include "platform/Processes.h"

#include <string>

namespace haloric {

void AppControl::restart(const Bundle& bundle, Processes& processes, Application& application)
{
    const std::string path = bundle.path();
    if (path.ends_with(".app")) {
        // The pause lets this instance end first; the quotes keep blanks in the path. A shell that cannot be
        // launched is no reason to stay.
        processes.launch("/bin/sh", {"-c", "sleep 0.4; " + bundle.openCommand() + " \"" + path + "\""});
    }
    application.terminate();
}

} // namespace haloric
