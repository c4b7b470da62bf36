#include "unit/hosts/linux/update/QtTestLoop.h"

#include <QCoreApplication>
#include <QTimer>

namespace haloric {
namespace {

int argumentCount = 1;
char programName[] = "test";
char* arguments[] = {programName, nullptr};

} // namespace

QtTestLoop::QtTestLoop() : m_application(std::make_unique<QCoreApplication>(argumentCount, arguments)) {}

QtTestLoop::~QtTestLoop() = default;

bool QtTestLoop::waitUntil(const std::function<bool()>& predicate, std::chrono::milliseconds patience)
{
    QTimer deadline;
    deadline.setSingleShot(true);
    deadline.start(patience);
    QTimer looks; // the predicate may change without an event
    looks.start(std::chrono::milliseconds(5));
    while (!predicate()) {
        if (!deadline.isActive())
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

} // namespace haloric
