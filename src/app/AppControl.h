// Operations on the running application as a whole. Main thread.
#pragma once

namespace haloric {

class Application;
class Bundle;
class Processes;

namespace AppControl {

// Ends the application, and has its bundle opened again once it is gone. A program that runs outside an application
// bundle, and one whose successor cannot be launched, ends all the same.
void restart(const Bundle& bundle, Processes& processes, Application& application);

} // namespace AppControl

} // namespace haloric
