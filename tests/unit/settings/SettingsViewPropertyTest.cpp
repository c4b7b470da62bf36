// After any sequence of edits: each control has changed only its own field and shows the new value, and the record can
// be stored and shown by the sliders.
#include "unit/settings/SettingsViewFixture.h"

#include "settings/SettingsCodec.h"

#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <set>

namespace haloric {
namespace {

using CopyField = void (*)(Settings& to, const Settings& from);

// The part of the record that each row may change; a row without an entry may change nothing.
const std::map<std::string, CopyField>& fields()
{
    static const std::map<std::string, CopyField> table{
        {"accent", [](Settings& to, const Settings& from) { to.accent = from.accent; }},
        {"cornerRadius", [](Settings& to, const Settings& from) { to.cornerRadius = from.cornerRadius; }},
        {"hideWhenFullScreen",
         [](Settings& to, const Settings& from) { to.hideWhenFullScreen = from.hideWhenFullScreen; }},
        {"borderEnabled", [](Settings& to, const Settings& from) { to.borderEnabled = from.borderEnabled; }},
        {"borderColor.useAccent",
         [](Settings& to, const Settings& from) { to.borderColor.useAccent = from.borderColor.useAccent; }},
        {"borderColor.custom",
         [](Settings& to, const Settings& from) { to.borderColor.custom = from.borderColor.custom; }},
        {"borderWidth", [](Settings& to, const Settings& from) { to.borderWidth = from.borderWidth; }},
        {"glowEnabled", [](Settings& to, const Settings& from) { to.glowEnabled = from.glowEnabled; }},
        {"glowColor.useAccent",
         [](Settings& to, const Settings& from) { to.glowColor.useAccent = from.glowColor.useAccent; }},
        {"glowColor.custom", [](Settings& to, const Settings& from) { to.glowColor.custom = from.glowColor.custom; }},
        {"glowRadius", [](Settings& to, const Settings& from) { to.glowRadius = from.glowRadius; }},
        {"glowOpacity", [](Settings& to, const Settings& from) { to.glowOpacity = from.glowOpacity; }},
        {"tintEnabled", [](Settings& to, const Settings& from) { to.tintEnabled = from.tintEnabled; }},
        {"tintColor.useAccent",
         [](Settings& to, const Settings& from) { to.tintColor.useAccent = from.tintColor.useAccent; }},
        {"tintColor.custom", [](Settings& to, const Settings& from) { to.tintColor.custom = from.tintColor.custom; }},
        {"tintOpacity", [](Settings& to, const Settings& from) { to.tintOpacity = from.tintOpacity; }},
        {"tintHeight", [](Settings& to, const Settings& from) { to.tintHeight = from.tintHeight; }},
        {"dimEnabled", [](Settings& to, const Settings& from) { to.dimEnabled = from.dimEnabled; }},
        {"dimColor", [](Settings& to, const Settings& from) { to.dimColor = from.dimColor; }},
        {"dimOpacity", [](Settings& to, const Settings& from) { to.dimOpacity = from.dimOpacity; }},
        {"dimScope", [](Settings& to, const Settings& from) { to.dimScope = from.dimScope; }},
        {"addRunningApp", [](Settings& to, const Settings& from) { to.dimApps = from.dimApps; }},
        {"chooseApplication", [](Settings& to, const Settings& from) { to.dimApps = from.dimApps; }},
        {"pulseEnabled", [](Settings& to, const Settings& from) { to.pulseEnabled = from.pulseEnabled; }},
        {"hotkeyEnabled", [](Settings& to, const Settings& from) { to.hotkeyEnabled = from.hotkeyEnabled; }},
        {"resetToDefaults", [](Settings& to, const Settings&) { to = Settings::defaults(); }},
    };
    return table;
}

Settings allowed(const std::string& id, Settings before, const Settings& after)
{
    if (id.starts_with("dimApps"))
        before.dimApps = after.dimApps;
    else if (const auto field = fields().find(id); field != fields().end())
        field->second(before, after);
    return before;
}

double anyNumber()
{
    using Limits = std::numeric_limits<double>;
    return *rc::gen::oneOf(rc::gen::map(rc::gen::inRange(-500, 7000), [](int value) { return value / 100.0; }),
                           rc::gen::arbitrary<double>(),
                           rc::gen::element(Limits::quiet_NaN(), Limits::infinity(), -Limits::infinity(), Limits::max(),
                                            Limits::lowest(), -0.0));
}

Color strangeColor() { return {anyNumber(), anyNumber(), anyNumber(), anyNumber()}; }

bool isOnScale(const FormSlider& slider)
{
    const double steps = (slider.value - slider.minimum) / slider.step;
    return slider.value >= slider.minimum && slider.value <= slider.maximum &&
           std::abs(steps - std::round(steps)) < 1e-9;
}

bool isFinite(const Color& color)
{
    return std::isfinite(color.red) && std::isfinite(color.green) && std::isfinite(color.blue) &&
           std::isfinite(color.alpha);
}

class SettingsViewPropertyTest : public SettingsViewFixture {
protected:
    SettingsViewPropertyTest()
    {
        applications.launch("org.example.mail", "Mail");
        applications.launch("org.example.notes", "Notes");
        applications.launch("com.kestrow.haloric", "Haloric");
        applications.install("org.example.music", "/Applications/Music.app", "Music");
        accessibility.trusted = false;
    }

    // The following use a control and return whether the new form shows the result.

    bool use(const std::string& id, const FormToggle& toggle)
    {
        const bool isOn = *rc::gen::arbitrary<bool>();
        toggle.set(isOn);
        return control<FormToggle>(id).isOn == isOn;
    }

    bool use(const std::string& id, const FormSlider& slider)
    {
        const double wanted = anyNumber();
        slider.set(wanted);
        const double shown = control<FormSlider>(id).value;
        if (!std::isfinite(wanted))
            return shown == slider.value;
        return std::abs(shown - std::clamp(wanted, slider.minimum, slider.maximum)) < slider.step / 2 + 1e-9;
    }

    bool use(const std::string& id, const FormColorWell& well)
    {
        const Color color = strangeColor();
        well.set(color);
        return control<FormColorWell>(id).color == (isFinite(color) ? color : well.color);
    }

    bool use(const std::string& id, const FormPicker& picker)
    {
        const auto index = *rc::gen::inRange<std::size_t>(0, 4);
        picker.choose(index);
        return control<FormPicker>(id).selected == (index < picker.options.size() ? index : picker.selected);
    }

    bool use(const std::string& id, const FormListRow& row)
    {
        row.remove();
        return !hasRow(id);
    }

    bool use(const std::string&, const FormButton& button)
    {
        button.perform();
        return true;
    }

    bool use(const std::string&, const FormMenu& menu)
    {
        const auto items = menu.items();
        if (!items.empty())
            items[*rc::gen::inRange<std::size_t>(0, items.size())].perform();
        return true;
    }

    bool recordIsValid()
    {
        const Settings& record = store.settings();
        bool valid = SettingsCodec::decode(SettingsCodec::encode(record).value_or("")) == record;
        valid = valid && std::set(record.dimApps.begin(), record.dimApps.end()).size() == record.dimApps.size();
        for (const FormRow& row : allRows(view->form()))
            if (const auto* slider = std::get_if<FormSlider>(&row.control))
                valid = valid && isOnScale(*slider);
        return valid;
    }
};

RC_GTEST_FIXTURE_PROP(SettingsViewPropertyTest, each_control_changes_only_its_own_field_and_the_record_stays_valid, ())
{
    const int actions = *rc::gen::inRange(1, 40);
    for (int action = 0; action < actions; ++action) {
        panels.chosenPath = *rc::gen::element<std::optional<std::string>>(
            std::nullopt, "/Applications/Music.app", "/Applications/Mail.app", "/Applications/Nameless.app");
        const auto rows = allRows(view->form());
        const FormRow& row = rows[*rc::gen::inRange<std::size_t>(0, rows.size())];
        const Settings before = store.settings();
        RC_LOG() << row.id << '\n';
        RC_ASSERT(std::visit([&](const auto& used) { return use(row.id, used); }, row.control));
        RC_ASSERT(store.settings() == allowed(row.id, before, store.settings()));
        RC_ASSERT(recordIsValid());
        RC_ASSERT(SettingsStore(defaults).settings() == store.settings());
    }
}

} // namespace
} // namespace haloric
