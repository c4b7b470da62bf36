#include "hosts/linux/form/QtFormWindows.h"

#include "hosts/linux/form/QtFormWindow.h"

namespace haloric {

std::unique_ptr<FormWindow> QtFormWindows::make(const FormWindowConfiguration& configuration, const FormModel& form)
{
    return std::make_unique<QtFormWindow>(m_connection, configuration, form);
}

} // namespace haloric
