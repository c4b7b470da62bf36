#include "hosts/x11/qt/X11FormWindows.h"

#include "hosts/x11/qt/X11FormWindow.h"

namespace haloric {

std::unique_ptr<FormWindow> X11FormWindows::make(const FormWindowConfiguration& configuration, const FormModel& form)
{
    return std::make_unique<X11FormWindow>(m_connection, configuration, form);
}

} // namespace haloric
