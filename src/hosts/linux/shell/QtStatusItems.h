// The items that the program puts into the tray of the desktop. Main thread.
#pragma once

#include "hosts/linux/shell/TrayWatcher.h"
#include "platform/StatusItems.h"

namespace haloric {

class QtStatusItems final : public StatusItems {
public:
    // Qt must have been set up. The connection outlives it.
    explicit QtStatusItems(X11Connection& connection) : m_hosts(connection) {}

    // Trays give each item its place themselves: every length is as long as the tray is high.
    std::unique_ptr<StatusItem> make(double length) override;

private:
    TrayWatcher m_hosts;
};

} // namespace haloric
