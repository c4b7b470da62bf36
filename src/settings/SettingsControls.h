// Makes form controls that are bound to fields of the settings record: each shows its field's current value and writes
// only that field, at once. A control that outlives this object does nothing. Main thread.
#pragma once

#include "foundation/WeakAnchor.h"
#include "platform/FormModel.h"
#include "settings/SettingsStore.h"
#include "settings/SliderScale.h"
#include "settings/ValueText.h"

#include <string>

namespace haloric {

class SettingsControls {
public:
    // The store outlives this.
    explicit SettingsControls(SettingsStore& store);

    FormRow toggle(std::string id, const std::string& label, bool Settings::*field) const;

    // The value follows the label. A moved slider takes values of the scale; a stored value off the scale stays until
    // then.
    FormRow slider(std::string id, const std::string& label, ValueText form, const SliderScale& scale,
                   double Settings::*field) const;

    FormRow colorWell(std::string id, const std::string& label, RGBA Settings::*field) const;

    // Appends the choice between the accent and a custom colour, and that colour.
    void appendEffectColor(FormSection& section, const std::string& id, EffectColor Settings::*field) const;

    FormRow dimScopePicker(std::string id, std::string label) const;

    const Settings& settings() const { return m_store.settings(); }

private:
    // In the following, `member` is a field, or a callable that returns a part of a record by reference.
    template <class Member>
    FormToggle boundToggle(const std::string& label, Member member) const;
    template <class Member>
    FormColorWell boundColorWell(const std::string& label, Member member) const;
    template <class Member, class Value>
    void write(Member member, const Value& value) const;

    SettingsStore& m_store;
    WeakAnchor<SettingsControls> m_anchor{*this};
};

} // namespace haloric
