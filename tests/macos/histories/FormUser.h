// Uses the controls of the settings window as a user does: finds the control's row in the window's views, changes what
// the control shows and sends its action. Stands between the program and the host's forms to see which rows each form
// has. Main thread.
#pragma once

#include "hosts/sim/form/SimFormWindows.h"
#include "platform/FormWindows.h"

#import <AppKit/AppKit.h>

#include <string_view>
#include <vector>

namespace haloric {

class FormUser final : public FormWindows {
public:
    explicit FormUser(FormWindows& host) : m_host(host) {}

    std::unique_ptr<FormWindow> make(const FormWindowConfiguration& configuration, const FormModel& form) override;

    // False when no form on screen has the control, it is disabled, or it takes no such value.
    bool change(std::string_view id, const SimFormWindows::Value& value);

private:
    class Window;

    FormWindows& m_host;
    std::vector<Window*> m_windows;
};

} // namespace haloric
