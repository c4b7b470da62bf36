// Does what a second start of the program asks of this one. Main thread.
#pragma once

#include "app/InstanceCommand.h"
#include "foundation/Task.h"

namespace haloric {

class RunLoop;
class SettingsStore;

class InstanceControl {
public:
    // `reopen` and `quit` run on later turns of the loop, when the reply is under way: they may take their time, or
    // be the end. The loop and the store outlive this.
    InstanceControl(RunLoop& runLoop, SettingsStore& store, Task reopen, Task quit);

    InstanceReply perform(const InstanceCommand& command);

    // The record in force, or why it cannot be told.
    static InstanceReply printedSettings(const SettingsStore& store);

private:
    InstanceReply toggle(const std::string& effect);

    RunLoop& m_runLoop;
    SettingsStore& m_store;
    Task m_reopen;
    Task m_quit;
};

} // namespace haloric
