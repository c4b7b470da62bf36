#include "app/InstanceControl.h"

#include "platform/RunLoop.h"
#include "settings/SettingsCodec.h"
#include "settings/SettingsStore.h"

#include <utility>

namespace haloric {

InstanceControl::InstanceControl(RunLoop& runLoop, SettingsStore& store, Task reopen, Task quit)
    : m_runLoop(runLoop),
      m_store(store),
      m_reopen(std::move(reopen)),
      m_quit(std::move(quit))
{
}

InstanceReply InstanceControl::perform(const InstanceCommand& command)
{
    switch (command.kind) {
    case InstanceCommand::Kind::reopen:
        m_runLoop.post(m_reopen);
        break;
    case InstanceCommand::Kind::quit:
        m_runLoop.post(m_quit);
        break;
    case InstanceCommand::Kind::toggle:
        return toggle(command.effect);
    case InstanceCommand::Kind::printSettings:
        return printedSettings(m_store);
    }
    return {.done = true, .text = {}};
}

InstanceReply InstanceControl::printedSettings(const SettingsStore& store)
{
    const auto json = SettingsCodec::encode(store.settings());
    return json ? InstanceReply{.done = true, .text = *json + "\n"}
                : InstanceReply{.done = false, .text = "the settings hold a value that cannot be written\n"};
}

InstanceReply InstanceControl::toggle(const std::string& effect)
{
    bool Settings::*const field = InstanceCommand::switchOf(effect);
    if (!field)
        return {.done = false, .text = "there is no effect of that name\n"};
    m_store.update([field](Settings& settings) { settings.*field = !(settings.*field); });
    const std::string state = effect + (m_store.settings().*field ? " is on" : " is off");
    if (const auto& error = m_store.saveError())
        return {.done = false, .text = state + ", but that is not saved: " + error->localizedDescription + "\n"};
    return {.done = true, .text = state + "\n"};
}

} // namespace haloric
