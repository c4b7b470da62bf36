// The program's run loop inside Qt's event loop: whichever of Qt's loops is running, that of a dialog or a menu as
// well, takes the run loop along. Main thread.
#pragma once

#include "hosts/x11/X11EventLoop.h"
#include "hosts/x11/X11RunLoop.h"

#include <memory>

class QSocketNotifier;

namespace haloric {

class X11QtEventLoop final : public X11EventLoop {
public:
    // Qt must have been set up (X11QtApplication). Both outlive it.
    explicit X11QtEventLoop(X11RunLoop& runLoop);
    ~X11QtEventLoop() override;

    void run() override;
    void stop() override;

private:
    X11RunLoop& m_runLoop;
    std::unique_ptr<QSocketNotifier> m_readable;
};

} // namespace haloric
