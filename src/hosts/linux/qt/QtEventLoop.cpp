#include "hosts/linux/qt/QtEventLoop.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QSocketNotifier>

namespace haloric {

QtEventLoop::QtEventLoop(LinuxRunLoop& runLoop)
    : m_runLoop(runLoop),
      m_readable(std::make_unique<QSocketNotifier>(runLoop.pollableDescriptor(), QSocketNotifier::Read))
{
    QObject::connect(m_readable.get(), &QSocketNotifier::activated, m_readable.get(),
                     [this] { m_runLoop.turn(Seconds(0)); });
    // Whatever Qt has done meanwhile may have sent requests, set timers, or read events ahead.
    QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, m_readable.get(),
                     [this] { m_runLoop.prepareToWait(); });
}

QtEventLoop::~QtEventLoop() = default;

void QtEventLoop::run() { QCoreApplication::exec(); }

void QtEventLoop::stop() { QCoreApplication::exit(); }

} // namespace haloric
