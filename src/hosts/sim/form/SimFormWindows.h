// Windows with forms on the simulated desktop: ordinary windows of Haloric, which can have the focus. A scenario sets
// their controls.
#pragma once

#include "hosts/sim/desktop/SimDesktop.h"
#include "platform/FormWindows.h"

#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace haloric {

class SimFormWindows final : public FormWindows {
public:
    // A control's new value: none (buttons), on or off, a slider's value, a colour, or an option of a picker or a
    // menu.
    using Value = std::variant<std::monostate, bool, double, Color, std::string>;

    explicit SimFormWindows(SimDesktop& desktop) : m_desktop(desktop) {}

    std::unique_ptr<FormWindow> make(const FormWindowConfiguration& configuration, const FormModel& form) override;

    // The control of that id, in the windows on screen; null when there is none.
    const FormControl* control(std::string_view id) const;

    // Sets the control as the user does. False when it is not on screen, disabled, or takes no such value.
    bool change(std::string_view id, const Value& value);

private:
    class Window;

    SimDesktop& m_desktop;
    std::vector<Window*> m_windows;
};

} // namespace haloric
