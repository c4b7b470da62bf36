#include "hosts/x11/qt/X11QtEventLoop.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QSocketNotifier>

namespace haloric {

X11QtEventLoop::X11QtEventLoop(X11RunLoop& runLoop)
    : m_runLoop(runLoop),
      m_readable(std::make_unique<QSocketNotifier>(runLoop.pollableDescriptor(), QSocketNotifier::Read))
{
    QObject::connect(m_readable.get(), &QSocketNotifier::activated, m_readable.get(),
                     [this] { m_runLoop.turn(Seconds(0)); });
    // Whatever Qt has done meanwhile may have sent requests, set timers, or read events ahead.
    QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, m_readable.get(),
                     [this] { m_runLoop.prepareToWait(); });
}

X11QtEventLoop::~X11QtEventLoop() = default;

void X11QtEventLoop::run() { QCoreApplication::exec(); }

void X11QtEventLoop::stop() { QCoreApplication::exit(); }

} // namespace haloric
