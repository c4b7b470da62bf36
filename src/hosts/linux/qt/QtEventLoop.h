// The program's run loop inside Qt's event loop: whichever of Qt's loops is running, that of a dialog or a menu as
// well, takes the run loop along. Main thread.
#pragma once

#include "hosts/linux/loop/EventLoop.h"
#include "hosts/linux/loop/LinuxRunLoop.h"

#include <memory>

class QSocketNotifier;

namespace haloric {

class QtEventLoop final : public EventLoop {
public:
    // Qt must have been set up (QtApplication). Both outlive it.
    explicit QtEventLoop(LinuxRunLoop& runLoop);
    ~QtEventLoop() override;

    void run() override;
    void stop() override;

private:
    LinuxRunLoop& m_runLoop;
    std::unique_ptr<QSocketNotifier> m_readable;
};

} // namespace haloric
