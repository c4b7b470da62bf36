#include "hosts/linux/form/QtFormWindows.h"

#include "hosts/linux/qt/QtImages.h"
#include "hosts/linux/qt/QtText.h"
#include "platform/WindowStyle.h"

#include <algorithm>
#include <utility>

#include <QGuiApplication>
#include <QHideEvent>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>

namespace haloric {

namespace {

constexpr int kFrameAllowance =
    60; // points that frames and panels need besides the content of a window as high as the screen

// The screen that shows most of the frame; the primary one if none shows any of it.
const QScreen& screenOf(const QRect& frame)
{
    const QScreen* best = QGuiApplication::primaryScreen();
    const auto shown = [&frame](const QScreen& screen) {
        const QSize size = screen.geometry().intersected(frame).size();
        return size.width() * size.height();
    };
    for (const QScreen* screen : QGuiApplication::screens())
        if (shown(*screen) > shown(*best))
            best = screen;
    return *best;
}

// The frame's position moved into `area`; a larger frame extends beyond the right and lower edges.
QPoint clamped(const QRect& frame, const QRect& area)
{
    return {std::max(std::min(frame.left(), area.right() + 1 - frame.width()), area.left()),
            std::max(std::min(frame.top(), area.bottom() + 1 - frame.height()), area.top())};
}

} // namespace

QtFormWindow::QtFormWindow(QtForeground& foreground, const FormWindowConfiguration& configuration,
                           const FormModel& form)
    : m_foreground(foreground),
      m_contentSize(QSizeF(configuration.contentSize.width, configuration.contentSize.height).toSize()),
      m_isResizable((configuration.styleMask & WindowStyle::kResizable) != 0),
      m_view(new QtFormView(this))
{
    Qt::WindowFlags flags = Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                            Qt::WindowCloseButtonHint;
    if ((configuration.styleMask & WindowStyle::kMiniaturizable) != 0)
        flags |= Qt::WindowMinimizeButtonHint;
    setWindowFlags(flags);
    setWindowTitle(qtText(configuration.title));
    setWindowIcon(QtImages::programIcon());
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->addWidget(m_view);
    for (const QKeySequence& keys : {QKeySequence(Qt::Key_Escape), QKeySequence(Qt::CTRL | Qt::Key_W)})
        connect(new QShortcut(keys, this), &QShortcut::activated, this, [this] { close(); });
    fitInto(*QGuiApplication::primaryScreen());
    m_view->show(form);
}

QtFormWindow::~QtFormWindow() = default;

void QtFormWindow::fitInto(const QScreen& screen)
{
    const int available = std::max(screen.availableSize().height() - kFrameAllowance, 1);
    const QSize size(m_contentSize.width(), std::min(m_contentSize.height(), available));
    if (m_isResizable)
        resize(size);
    else
        setFixedSize(size);
}

void QtFormWindow::setForm(const FormModel& form) { m_view->show(form); }

void QtFormWindow::center()
{
    const QScreen& screen = *QGuiApplication::primaryScreen();
    if (!QWidget::isVisible())
        fitInto(screen);
    QRect frame = frameGeometry();
    frame.moveCenter(screen.availableGeometry().center());
    m_position = frame.topLeft();
    move(*m_position);
}

void QtFormWindow::makeKeyAndOrderFront()
{
    const bool appears = !QWidget::isVisible();
    if (appears)
        moveOntoScreen();
    m_isAppearing = appears;
    m_foreground.bring(*this);
    if (appears)
        notifySections();
}

void QtFormWindow::notifySections()
{
    for (const Task& onAppear : m_view->onAppear())
        onAppear();
}

// Screens may have been added, removed or changed while the window was hidden.
void QtFormWindow::moveOntoScreen()
{
    const QPoint place = m_position.value_or(frameGeometry().topLeft());
    const QScreen& screen = screenOf({place, frameGeometry().size()});
    fitInto(screen);
    if (!m_position)
        return;
    m_position = clamped({place, frameGeometry().size()}, screen.availableGeometry());
    move(*m_position);
}

void QtFormWindow::hideEvent(QHideEvent* event)
{
    if (!event->spontaneous())
        m_position = frameGeometry().topLeft();
    QWidget::hideEvent(event);
}

// What the form shows of the desktop may have changed while other windows had the focus.
bool QtFormWindow::event(QEvent* event)
{
    const bool isHandled = QWidget::event(event);
    if (event->type() == QEvent::WindowActivate && !std::exchange(m_isAppearing, false))
        notifySections();
    return isHandled;
}

std::unique_ptr<FormWindow> QtFormWindows::make(const FormWindowConfiguration& configuration, const FormModel& form)
{
    return std::make_unique<QtFormWindow>(m_foreground, configuration, form);
}

} // namespace haloric
