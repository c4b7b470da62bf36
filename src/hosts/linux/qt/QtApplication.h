// Qt, set up as this program needs it: only on X11, with a loop that waits in poll(2), without session management,
// alive without windows; and the program's run loop inside Qt's event loop. Main thread.
#pragma once

#include "foundation/Task.h"
#include "hosts/linux/loop/EventLoop.h"
#include "hosts/linux/loop/LinuxRunLoop.h"

#include <memory>

class QApplication;
class QSocketNotifier;

namespace haloric {

// At most one exists. Construct it before other threads start and after the display is known to answer.
class QtApplication {
public:
    // `displayLost` is called when Qt finds the X server gone, also during the construction. Qt ends the process right
    // after that, so the process ends with exit code 1 when the call returns. If Qt cannot start for another reason,
    // such as a server that accepts no further client, the process ends with exit code 1 and one line on standard
    // error.
    explicit QtApplication(Task displayLost);
    ~QtApplication();
    QtApplication(const QtApplication&) = delete;
    QtApplication& operator=(const QtApplication&) = delete;

private:
    std::unique_ptr<QApplication> m_application;
};

// Runs Qt's event loop. The run loop turns inside every loop of Qt, also inside that of a dialog or a menu.
class QtEventLoop final : public EventLoop {
public:
    // Requires QtApplication. Both outlive it.
    explicit QtEventLoop(LinuxRunLoop& runLoop);
    ~QtEventLoop() override;

    void run() override;
    void stop() override;

private:
    LinuxRunLoop& m_runLoop;
    std::unique_ptr<QSocketNotifier> m_readable;
};

} // namespace haloric
