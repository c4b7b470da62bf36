#include "hosts/x11/X11Alerts.h"

#include <iostream>

namespace haloric {

std::int64_t X11Alerts::runModal(const AlertModel& alert)
{
    std::cerr << alert.messageText << "\n\n" << alert.informativeText << std::endl;
    return kFirstButton + static_cast<std::int64_t>(alert.buttons.empty() ? 0 : alert.buttons.size() - 1);
}

void X11Alerts::runModalError(const PlatformError& error) { std::cerr << error.localizedDescription << std::endl; }

} // namespace haloric
