// Operations on the running application as a whole. Main thread.
#pragma once

namespace haloric {

class Application;
class Bundle;
class Processes;

namespace AppControl {

// Terminates the application and has a shell reopen its bundle after that. Terminates also when the program does not
// run from an application bundle or the shell cannot be launched.
void restart(const Bundle& bundle, Processes& processes, Application& application);

} // namespace AppControl

} // namespace haloric
