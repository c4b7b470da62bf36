// The items that the program puts into the tray of the desktop. Main thread.
#pragma once

#include "hosts/x11/qt/X11TrayHosts.h"
#include "platform/StatusItems.h"

namespace haloric {

class X11StatusItems final : public StatusItems {
public:
    // Qt must have been set up. The connection outlives it.
    explicit X11StatusItems(X11Connection& connection) : m_hosts(connection) {}

    // Trays give each item its place themselves: every length is as long as the tray is high.
    std::unique_ptr<StatusItem> make(double length) override;

private:
    X11TrayHosts m_hosts;
};

} // namespace haloric
