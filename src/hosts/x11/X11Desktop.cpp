#include "hosts/x11/X11Desktop.h"

namespace haloric {

X11Desktop::X11Desktop(X11Connection& connection, LinuxRunLoop& runLoop, Log& log)
    : screens(connection, scale),
      windowManager(connection),
      clients(connection, windowManager),
      workspace(clients, runLoop),
      accessibility(runLoop, clients, windowManager, scale),
      windowInfoSource(clients.table(), scale),
      windowServerCalls(connection, clients, scale),
      catalog(clients.table(), workspace),
      compositor(connection),
      toolkitWindows(connection, runLoop, compositor, scale, clients.table(), log),
      displayLinks(connection, runLoop, scale),
      keyboard(connection),
      rawInput(connection, keyboard),
      ownWindows(connection),
      input(rawInput, ownWindows),
      m_connection(connection),
      m_beforeWait(runLoop.onBeforeWait([this] { return pass(); }))
{
}

bool X11Desktop::pass()
{
    if (m_connection.isLost())
        return false;
    bool worked = screens.update();
    worked = windowManager.update() || worked;
    worked = clients.update() || worked;
    worked = toolkitWindows.updateStack() || worked;
    worked = toolkitWindows.paint() || worked;
    return worked;
}

} // namespace haloric
