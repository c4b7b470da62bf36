#include "settings/SettingsControls.h"

#include <array>
#include <cmath>
#include <utility>

namespace haloric {
namespace {

struct ScopeName {
    DimScope scope;
    const char* name;
};

constexpr std::array kScopeNames{ScopeName{DimScope::allWindows, "All other windows"},
                                 ScopeName{DimScope::selectedApps, "Only selected apps"}};
static_assert(kScopeNames.size() == kAllDimScopes.size());

// The record could not be stored any more with other numbers in it.
bool isFinite(const Color& color)
{
    return std::isfinite(color.red) && std::isfinite(color.green) && std::isfinite(color.blue) &&
           std::isfinite(color.alpha);
}

// In the following, `member` gives the part of a record that the control is bound to.

template <class Write, class Member>
FormToggle boundToggle(const std::string& label, const Settings& shown, const Write& write, Member member)
{
    const auto set = [write, member](bool isOn) { write([&](Settings& record) { member(record) = isOn; }); };
    return {.label = label, .isOn = member(shown), .set = set};
}

template <class Write, class Member>
FormColorWell colorBinding(const std::string& label, const Settings& shown, const Write& write, Member member)
{
    const auto set = [write, member](const Color& color) {
        if (isFinite(color))
            write([&](Settings& record) { member(record) = rgbaFrom(color); });
    };
    return {.label = label, .color = colorFrom(member(shown)), .set = set};
}

} // namespace

SettingsControls::SettingsControls(SettingsStore& store) : m_store(store) {}

FormRow SettingsControls::toggle(std::string id, const std::string& label, bool Settings::*field) const
{
    const auto member = [field](auto& record) -> auto& { return record.*field; };
    return {std::move(id), boundToggle(label, settings(), writer(), member)};
}

FormRow SettingsControls::slider(std::string id, const std::string& label, ValueText form, const SliderScale& scale,
                                 double Settings::*field) const
{
    const double value = settings().*field;
    const auto set = [write = writer(), scale, field](double wanted) {
        if (const auto nearest = scale.nearest(wanted))
            write([&](Settings& record) { record.*field = *nearest; });
    };
    return {std::move(id), FormSlider{.label = label + text(form, value),
                                      .value = value,
                                      .minimum = scale.minimum(),
                                      .maximum = scale.maximum(),
                                      .step = scale.step(),
                                      .set = set}};
}

FormRow SettingsControls::colorWell(std::string id, const std::string& label, RGBA Settings::*field) const
{
    const auto member = [field](auto& record) -> auto& { return record.*field; };
    return {std::move(id), colorBinding(label, settings(), writer(), member)};
}

void SettingsControls::appendEffectColor(FormSection& section, const std::string& id,
                                         EffectColor Settings::*field) const
{
    const auto useAccent = [field](auto& record) -> auto& { return (record.*field).useAccent; };
    const auto custom = [field](auto& record) -> auto& { return (record.*field).custom; };
    FormColorWell well = colorBinding("Custom color", settings(), writer(), custom);
    well.isEnabled = !useAccent(settings());
    section.rows.push_back({id + ".useAccent", boundToggle("Use accent color", settings(), writer(), useAccent)});
    section.rows.push_back({id + ".custom", std::move(well)});
}

FormRow SettingsControls::dimScopePicker(std::string id, std::string label) const
{
    FormPicker picker;
    picker.label = std::move(label);
    picker.choose = [write = writer()](std::size_t index) {
        if (index < kScopeNames.size())
            write([&](Settings& record) { record.dimScope = kScopeNames[index].scope; });
    };
    for (const auto& [scope, name] : kScopeNames) {
        if (scope == settings().dimScope)
            picker.selected = picker.options.size();
        picker.options.emplace_back(name);
    }
    return {std::move(id), std::move(picker)};
}

std::function<void(const SettingsControls::Edit&)> SettingsControls::writer() const
{
    return [weak = m_weakAnchor.ref()](const Edit& edit) {
        if (SettingsControls* self = weak.get())
            self->m_store.update(edit);
    };
}

} // namespace haloric
