#include "settings/SettingsStore.h"

#include "settings/SettingsCodec.h"

#include <memory>
#include <utility>

namespace haloric {

SettingsStore::SettingsStore(UserDefaults& defaults) : m_defaults(defaults)
{
    if (const auto bytes = m_defaults.data(kDefaultsKey))
        m_settings = SettingsCodec::decode(*bytes).value_or(Settings::defaults());
}

void SettingsStore::setSettings(const Settings& settings)
{
    Settings next = settings; // `settings` may be a part of what changes before it is assigned
    m_willChange.publish();
    m_settings = std::move(next);
    m_published.publish();
    save();
}

Subscription SettingsStore::onWillChange(Task handler) { return m_willChange.subscribe(std::move(handler)); }

Subscription SettingsStore::subscribe(std::function<void(const Settings&)> handler)
{
    // Each delivery is a copy of what holds at that moment: when one subscriber writes, those after it must not end up
    // with the older record, nor may a record change while a subscriber reads it.
    auto deliver = [this, shared = std::make_shared<std::function<void(const Settings&)>>(std::move(handler))] {
        const Settings current = m_settings;
        (*shared)(current);
    };
    auto subscription = m_published.subscribe(deliver);
    deliver();
    return subscription;
}

Subscription SettingsStore::onSaveErrorChange(Task handler) { return m_saveErrorChanged.subscribe(std::move(handler)); }

void SettingsStore::save()
{
    const auto bytes = SettingsCodec::encode(m_settings);
    auto error =
        bytes ? m_defaults.setData(kDefaultsKey, *bytes)
              : PlatformError{.localizedDescription = "The settings hold a number or a name that cannot be stored."};
    if (std::exchange(m_saveError, error) != error)
        m_saveErrorChanged.publish();
}

} // namespace haloric
