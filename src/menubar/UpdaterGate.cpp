#include "menubar/UpdaterGate.h"

namespace haloric {

void UpdaterGate::checkForUpdates() const
{
    if (const auto present = controller.lock())
        present->checkForUpdates();
}

} // namespace haloric
