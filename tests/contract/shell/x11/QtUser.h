// The user of this program's Qt interface, on a private desktop with a window manager and a tray: clicks and keys come
// from the X server's input devices, and what is shown is read from Qt's widgets. The desktop serves all tests of the
// process, because Qt cannot change its display. Main thread; every wait runs Qt's loop and in it the program's.
#pragma once

#include "foundation/Task.h"
#include "foundation/Time.h"
#include "hosts/linux/loop/LinuxRunLoop.h"
#include "testing/x11/TrayPanel.h"
#include "testing/x11/X11Session.h"

#include <functional>
#include <string>

#include <QString>
#include <QWidget>

namespace haloric {

// The parts that live as long as the process.
struct QtUserDesktop {
    X11Session& session;
    TrayPanel& panel;

    // Starts them, and Qt, with the first call.
    static QtUserDesktop& shared();

    // Before the process ends: Qt cannot end after it.
    static void end();
};

class QtUser {
public:
    // The loop outlives it and is driven by Qt.
    explicit QtUser(LinuxRunLoop& runLoop) : m_runLoop(runLoop) {}

    X11Session& session() { return QtUserDesktop::shared().session; }
    TrayPanel& panel() { return QtUserDesktop::shared().panel; }

    bool waitUntil(const std::function<bool()>& holds);
    void turnFor(Seconds duration);

    // Calls `act` once, from the main loop, when `holds` does. Also while Qt runs a loop of its own, as for a dialog or
    // a button's menu, inside the handler of a click.
    void when(std::function<bool()> holds, Task act);

    // Runs a call that waits for other processes on another thread, and this program's loop meanwhile. The call alone
    // uses the session.
    bool waitFor(const std::function<bool()>& call);

    // Clicks the middle of the widget, menu item or list item of that name (WidgetFinder), once it is in place; or
    // another part of it: 0 is its left edge, 1 its right one. False when there is none.
    bool click(const std::string& name, double place = 0.5);
    void press(std::uint32_t keySymbol);

    // Closes the menus that are open.
    void closeMenus();

    // The visible widget with that object name, or null.
    static QWidget* widget(const std::string& name);

    // A label without the mark of its access key.
    static std::string plain(QString label);

private:
    bool isFrontWindowSettled();

    LinuxRunLoop& m_runLoop;
    Subscription m_awaited;
};

} // namespace haloric
