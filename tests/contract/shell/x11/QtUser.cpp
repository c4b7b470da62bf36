#include "contract/shell/x11/QtUser.h"

#include "hosts/linux/qt/QtApplication.h"
#include "testing/x11/Key.h"
#include "x11/qt/program/WidgetFinder.h"

#include <cmath>
#include <cstdlib>
#include <future>
#include <memory>
#include <utility>

#include <QApplication>
#include <QEventLoop>

namespace haloric {

namespace {

constexpr Seconds kTurn{0.01};

// The process becomes one of the session's.
void adopt(const Environment& environment)
{
    clearenv();
    for (const auto& [name, value] : environment)
        setenv(name.c_str(), value.c_str(), 1);
}

struct AdoptedSession : X11Session {
    AdoptedSession() : X11Session(WindowManager::openbox) { adopt(environment()); }
};

struct Parts {
    AdoptedSession session;
    TrayPanel panel{session};
    QtApplication qt{[] {}};
    QtUserDesktop desktop{session, panel};
};

std::unique_ptr<Parts> parts;

} // namespace

QtUserDesktop& QtUserDesktop::shared()
{
    if (!parts)
        parts = std::make_unique<Parts>();
    return parts->desktop;
}

void QtUserDesktop::end() { parts.reset(); }

bool QtUser::waitUntil(const std::function<bool()>& holds)
{
    const Deadline deadline(kTimeout);
    while (!holds()) {
        if (deadline.isOver())
            return false;
        turnFor(kTurn);
    }
    return true;
}

void QtUser::turnFor(Seconds duration)
{
    QEventLoop loop;
    const Subscription end = m_runLoop.scheduleOnce(duration, [&loop] { loop.quit(); });
    loop.exec();
}

void QtUser::when(std::function<bool()> holds, Task act)
{
    m_awaited = m_runLoop.scheduleRepeating(kTurn, Seconds(0), [this, holds = std::move(holds), act = std::move(act)] {
        if (!holds())
            return;
        const Task now = act;
        m_awaited.reset();
        now();
    });
}

bool QtUser::waitFor(const std::function<bool()>& call)
{
    auto answer = std::async(std::launch::async, call);
    while (answer.wait_for(Seconds(0)) != std::future_status::ready)
        turnFor(kTurn);
    return answer.get();
}

bool QtUser::click(const std::string& name, double place)
{
    std::optional<QRect> last;
    // A new window may still move, and Qt learns of it after the window manager.
    const auto isInPlace = [&] {
        const auto now = WidgetFinder::find(name);
        return now && now == std::exchange(last, now) && isFrontWindowSettled();
    };
    if (!waitUntil(isInPlace))
        return false;
    const int x = last->x() + static_cast<int>(std::lround(place * (last->width() - 1)));
    session().input().clickAt(x, last->center().y());
    return true;
}

bool QtUser::isFrontWindowSettled()
{
    const QWidget* popup = QApplication::activePopupWidget();
    const QWidget* front = popup ? popup : QApplication::activeWindow();
    if (!front)
        return false;
    const ScreenRect place = session().observer().rectOnRoot(static_cast<xcb_window_t>(front->winId()));
    return front->mapToGlobal(QPoint(0, 0)) == QPoint(place.x, place.y);
}

void QtUser::press(std::uint32_t keySymbol)
{
    session().input().pressKey(keySymbol);
    session().input().releaseKey(keySymbol);
}

void QtUser::closeMenus()
{
    while (const QWidget* menu = QApplication::activePopupWidget()) {
        press(Key::kEscape);
        if (!waitUntil([menu] { return QApplication::activePopupWidget() != menu; }))
            return;
    }
}

QWidget* QtUser::widget(const std::string& name)
{
    for (QWidget* widget : QApplication::allWidgets())
        if (widget->isVisible() && widget->objectName().toStdString() == name)
            return widget;
    return nullptr;
}

std::string QtUser::plain(QString label)
{
    return label.section('\t', 0, 0).replace("&&", "\1").remove('&').replace('\1', '&').toStdString();
}

} // namespace haloric
