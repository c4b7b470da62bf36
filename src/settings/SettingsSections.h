// Those sections of the settings window that hold nothing but bound controls.
#pragma once

#include "platform/FormModel.h"
#include "settings/HostTexts.h"

namespace haloric {

class SettingsControls;

namespace SettingsSections {

// Without the switch that starts the application at login: it is bound to no field of the record.
FormSection general(const SettingsControls& controls);

FormSection border(const SettingsControls& controls);
FormSection glow(const SettingsControls& controls);
FormSection tint(const SettingsControls& controls);

// Without the list of applications.
FormSection dim(const SettingsControls& controls);

FormSection pulse(const SettingsControls& controls, const HostTexts& texts);
FormSection shortcut(const SettingsControls& controls, const HostTexts& texts);

} // namespace SettingsSections

} // namespace haloric
