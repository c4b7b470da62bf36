#include "settings/SettingsControls.h"

#include <array>
#include <cmath>
#include <functional>
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

// A record with other numbers cannot be stored.
bool isFinite(const Color& color)
{
    return std::isfinite(color.red) && std::isfinite(color.green) && std::isfinite(color.blue) &&
           std::isfinite(color.alpha);
}

} // namespace

SettingsControls::SettingsControls(SettingsStore& store) : m_store(store) {}

template <class Member, class Value>
void SettingsControls::write(Member member, const Value& value) const
{
    m_store.update([&](Settings& record) { std::invoke(member, record) = value; });
}

template <class Member>
FormToggle SettingsControls::boundToggle(const std::string& label, Member member) const
{
    const auto set = [member](const SettingsControls& self, bool isOn) { self.write(member, isOn); };
    return {.label = label, .isOn = std::invoke(member, settings()), .set = m_anchor.bind(set)};
}

template <class Member>
FormColorWell SettingsControls::boundColorWell(const std::string& label, Member member) const
{
    const auto set = [member](const SettingsControls& self, const Color& color) {
        if (isFinite(color))
            self.write(member, rgbaFrom(color));
    };
    return {
        .label = label, .color = colorFrom(std::invoke(member, settings())), .set = m_anchor.bind(set), .title = label};
}

FormRow SettingsControls::toggle(std::string id, const std::string& label, bool Settings::*field) const
{
    return {std::move(id), boundToggle(label, field)};
}

FormRow SettingsControls::slider(std::string id, const std::string& label, ValueText form, const SliderScale& scale,
                                 double Settings::*field) const
{
    const double value = settings().*field;
    const auto set = [scale, field](const SettingsControls& self, double wanted) {
        if (const auto nearest = scale.nearest(wanted))
            self.write(field, *nearest);
    };
    return {std::move(id), FormSlider{.label = label + text(form, value),
                                      .value = value,
                                      .minimum = scale.minimum(),
                                      .maximum = scale.maximum(),
                                      .step = scale.step(),
                                      .set = m_anchor.bind(set)}};
}

FormRow SettingsControls::colorWell(std::string id, const std::string& label, RGBA Settings::*field) const
{
    return {std::move(id), boundColorWell(label, field)};
}

void SettingsControls::appendEffectColor(FormSection& section, const std::string& id,
                                         EffectColor Settings::*field) const
{
    const auto useAccent = [field](auto& record) -> auto& { return (record.*field).useAccent; };
    const auto custom = [field](auto& record) -> auto& { return (record.*field).custom; };
    FormColorWell well = boundColorWell("Custom color", custom);
    well.title = section.title + " color";
    well.isEnabled = !useAccent(settings());
    section.rows.push_back({id + ".useAccent", boundToggle("Use accent color", useAccent)});
    section.rows.push_back({id + ".custom", std::move(well)});
}

FormRow SettingsControls::dimScopePicker(std::string id, std::string label) const
{
    FormPicker picker;
    picker.label = std::move(label);
    picker.choose = m_anchor.bind([](const SettingsControls& self, std::size_t index) {
        if (index < kScopeNames.size())
            self.write(&Settings::dimScope, kScopeNames[index].scope);
    });
    for (const auto& [scope, name] : kScopeNames) {
        if (scope == settings().dimScope)
            picker.selected = picker.options.size();
        picker.options.emplace_back(name);
    }
    return {std::move(id), std::move(picker)};
}

} // namespace haloric
