// Performs the commands that a second start of the program sends. Main thread.
#pragma once

#include "app/InstanceCommand.h"
#include "foundation/Task.h"

namespace haloric {

class RunLoop;
class SettingsStore;

class InstanceControl {
public:
    // `reopen` and `quit` run on later turns of the loop, after the reply is sent, because they may block or end the
    // process. The loop and the store outlive this.
    InstanceControl(RunLoop& runLoop, SettingsStore& store, Task reopen, Task quit);

    InstanceReply perform(const InstanceCommand& command);

    // The current record as text, or why it cannot be encoded.
    static InstanceReply printedSettings(const SettingsStore& store);

private:
    InstanceReply toggle(const std::string& effect);

    RunLoop& m_runLoop;
    SettingsStore& m_store;
    Task m_reopen;
    Task m_quit;
};

} // namespace haloric
