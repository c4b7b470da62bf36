#include "settings/SettingsControls.h"

#include <algorithm>
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

} // namespace

SettingsControls::SettingsControls(SettingsStore& store) : m_store(store) {}

FormRow SettingsControls::toggle(std::string id, std::string label, bool Settings::*field) const
{
    return {
        std::move(id),
        FormToggle{.label = std::move(label), .isOn = settings().*field, .set = [write = writer(), field](bool isOn) {
                       write([&](Settings& record) { record.*field = isOn; });
                   }}};
}

FormRow SettingsControls::slider(std::string id, const std::string& label, ValueText form, const SliderScale& scale,
                                 double Settings::*field) const
{
    const double value = settings().*field;
    return {std::move(id), FormSlider{.label = label + text(form, value),
                                      .value = value,
                                      .minimum = scale.minimum(),
                                      .maximum = scale.maximum(),
                                      .step = scale.step(),
                                      .set = [write = writer(), scale, field](double wanted) {
                                          if (const auto nearest = scale.nearest(wanted))
                                              write([&](Settings& record) { record.*field = *nearest; });
                                      }}};
}

FormRow SettingsControls::colorWell(std::string id, std::string label, RGBA Settings::*field) const
{
    return {std::move(id), FormColorWell{.label = std::move(label),
                                         .color = colorFrom(settings().*field),
                                         .set = [write = writer(), field](const Color& color) {
                                             if (isFinite(color))
                                                 write([&](Settings& record) { record.*field = rgbaFrom(color); });
                                         }}};
}

void SettingsControls::appendEffectColor(FormSection& section, const std::string& id,
                                         EffectColor Settings::*field) const
{
    const EffectColor& effect = settings().*field;
    section.rows.push_back(
        {id + ".useAccent",
         FormToggle{.label = "Use accent color", .isOn = effect.useAccent, .set = [write = writer(), field](bool isOn) {
                        write([&](Settings& record) { (record.*field).useAccent = isOn; });
                    }}});
    section.rows.push_back({id + ".custom", FormColorWell{.label = "Custom color",
                                                          .color = colorFrom(effect.custom),
                                                          .isEnabled = !effect.useAccent,
                                                          .set = [write = writer(), field](const Color& color) {
                                                              if (isFinite(color))
                                                                  write([&](Settings& record) {
                                                                      (record.*field).custom = rgbaFrom(color);
                                                                  });
                                                          }}});
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
