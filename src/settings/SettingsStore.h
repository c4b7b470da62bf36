// The one owner of the settings record: loads it once, publishes every change and saves it at once. A record that
// cannot be saved stays in force. Main thread.
#pragma once

#include "foundation/Publisher.h"
#include "foundation/Subscription.h"
#include "platform/UserDefaults.h"
#include "settings/Settings.h"

#include <functional>
#include <optional>
#include <string_view>

namespace haloric {

class SettingsStore {
public:
    static constexpr std::string_view kDefaultsKey = "Haloric.settings.v1";

    // Loads the record. Nothing stored, or something that does not decode, gives the defaults; what is stored stays
    // as it is until the next save. `defaults` outlives the store.
    explicit SettingsStore(UserDefaults& defaults);

    const Settings& settings() const { return m_settings; }

    // Replaces the record, also by an equal one: announces the change, delivers the new value, then saves.
    void setSettings(const Settings& settings);

    // Writes through a nested field; counts as one write of the whole record.
    template <class Edit>
    void update(Edit edit)
    {
        Settings edited = m_settings;
        edit(edited);
        setSettings(edited);
    }

    // Called just before each change, while `settings()` still gives the old record.
    Subscription onWillChange(Task handler);

    // Called with the current record at once, and after every write; synchronously, on the writing thread. A handler
    // may write: the deliveries that are still due then carry the newest record.
    Subscription subscribe(std::function<void(const Settings&)> handler);

    // Why the last write was not saved; no value if it was, and before the first write.
    const std::optional<PlatformError>& saveError() const { return m_saveError; }

    // Called after a write that changed `saveError`.
    Subscription onSaveErrorChange(Task handler);

private:
    void save();

    UserDefaults& m_defaults;
    Settings m_settings;
    Publisher<> m_willChange;
    Publisher<> m_published;
    std::optional<PlatformError> m_saveError;
    Publisher<> m_saveErrorChanged;
};

} // namespace haloric
