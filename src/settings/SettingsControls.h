// Makes form controls that are bound to fields of the settings record: each shows its field as it is now, and writes to
// nothing but that field, at once. A control that outlives its maker does nothing. Main thread.
#pragma once

#include "foundation/WeakAnchor.h"
#include "platform/FormModel.h"
#include "settings/SettingsStore.h"
#include "settings/SliderScale.h"
#include "settings/ValueText.h"

#include <functional>
#include <string>

namespace haloric {

class SettingsControls {
public:
    // The store outlives this.
    explicit SettingsControls(SettingsStore& store);

    FormRow toggle(std::string id, const std::string& label, bool Settings::*field) const;

    // The value follows the label. A move of the slider ends on the scale; a stored value beside it stays until then.
    FormRow slider(std::string id, const std::string& label, ValueText form, const SliderScale& scale,
                   double Settings::*field) const;

    FormRow colorWell(std::string id, const std::string& label, RGBA Settings::*field) const;

    // Appends the choice between the accent and an own colour, and that colour.
    void appendEffectColor(FormSection& section, const std::string& id, EffectColor Settings::*field) const;

    FormRow dimScopePicker(std::string id, std::string label) const;

    const Settings& settings() const { return m_store.settings(); }

private:
    using Edit = std::function<void(Settings&)>;

    // What the controls write through.
    std::function<void(const Edit&)> writer() const;

    SettingsStore& m_store;
    WeakAnchor<SettingsControls> m_weakAnchor{*this};
};

} // namespace haloric
