#include "settings/SettingsSections.h"

#include "settings/SettingsControls.h"

namespace haloric {
namespace {

constexpr SliderScale kCornerRadius{.stepsPerUnit = 1, .first = 0, .last = 20}; // points
constexpr SliderScale kBorderWidth{.stepsPerUnit = 2, .first = 2, .last = 24};  // 1...12 points by 0.5
constexpr SliderScale kGlowRadius{.stepsPerUnit = 1, .first = 4, .last = 60};   // points
constexpr SliderScale kGlowOpacity{.stepsPerUnit = 20, .first = 2, .last = 20}; // 0.1...1.0 by 0.05
constexpr SliderScale kTintOpacity{.stepsPerUnit = 20, .first = 1, .last = 16}; // 0.05...0.8 by 0.05
constexpr SliderScale kTintHeight{.stepsPerUnit = 1, .first = 16, .last = 60};  // points
constexpr SliderScale kDimOpacity{.stepsPerUnit = 20, .first = 1, .last = 18};  // 0.05...0.9 by 0.05

} // namespace

FormSection SettingsSections::general(const SettingsControls& controls)
{
    FormSection section{.id = "general", .title = "General"};
    section.rows.push_back(controls.colorWell("accent", "Accent color", &Settings::accent));
    section.rows.push_back(controls.slider("cornerRadius", "Corner radius: ", ValueText::wholePoints, kCornerRadius,
                                           &Settings::cornerRadius));
    section.rows.push_back(
        controls.toggle("hideWhenFullScreen", "Hide highlight for full-screen windows", &Settings::hideWhenFullScreen));
    return section;
}

FormSection SettingsSections::border(const SettingsControls& controls)
{
    FormSection section{.id = "border", .title = "Border"};
    section.rows.push_back(controls.toggle("borderEnabled", "Enabled", &Settings::borderEnabled));
    controls.appendEffectColor(section, "borderColor", &Settings::borderColor);
    section.rows.push_back(
        controls.slider("borderWidth", "Width: ", ValueText::pointsTenths, kBorderWidth, &Settings::borderWidth));
    return section;
}

FormSection SettingsSections::glow(const SettingsControls& controls)
{
    FormSection section{.id = "glow", .title = "Glow"};
    section.rows.push_back(controls.toggle("glowEnabled", "Enabled", &Settings::glowEnabled));
    controls.appendEffectColor(section, "glowColor", &Settings::glowColor);
    section.rows.push_back(
        controls.slider("glowRadius", "Radius: ", ValueText::wholePoints, kGlowRadius, &Settings::glowRadius));
    section.rows.push_back(
        controls.slider("glowOpacity", "Intensity: ", ValueText::percent, kGlowOpacity, &Settings::glowOpacity));
    return section;
}

FormSection SettingsSections::tint(const SettingsControls& controls)
{
    FormSection section{.id = "tint",
                        .title = "Title-bar tint",
                        .footer = "Height matches each window's title bar automatically; the fallback applies when it "
                                  "can't be measured. Windows without a title bar aren't tinted."};
    section.rows.push_back(controls.toggle("tintEnabled", "Enabled", &Settings::tintEnabled));
    controls.appendEffectColor(section, "tintColor", &Settings::tintColor);
    section.rows.push_back(
        controls.slider("tintOpacity", "Opacity: ", ValueText::percent, kTintOpacity, &Settings::tintOpacity));
    section.rows.push_back(
        controls.slider("tintHeight", "Fallback height: ", ValueText::wholePoints, kTintHeight, &Settings::tintHeight));
    return section;
}

FormSection SettingsSections::dim(const SettingsControls& controls)
{
    FormSection section{.id = "dim", .title = "Dim other windows"};
    section.rows.push_back(controls.toggle("dimEnabled", "Enabled", &Settings::dimEnabled));
    section.rows.push_back(controls.colorWell("dimColor", "Dim color", &Settings::dimColor));
    section.rows.push_back(
        controls.slider("dimOpacity", "Strength: ", ValueText::percent, kDimOpacity, &Settings::dimOpacity));
    section.rows.push_back(controls.dimScopePicker("dimScope", "Apply to"));
    return section;
}

FormSection SettingsSections::pulse(const SettingsControls& controls, const HostTexts& texts)
{
    FormSection section{.id = "pulse", .title = "Pulse"};
    section.rows.push_back(controls.toggle("pulseEnabled", texts.pulseLabel, &Settings::pulseEnabled));
    return section;
}

FormSection SettingsSections::shortcut(const SettingsControls& controls, const HostTexts& texts)
{
    FormSection section{.id = "shortcut", .title = "Shortcut", .footer = texts.shortcutFooter};
    section.rows.push_back(controls.toggle("hotkeyEnabled", texts.shortcutLabel, &Settings::hotkeyEnabled));
    return section;
}

} // namespace haloric
