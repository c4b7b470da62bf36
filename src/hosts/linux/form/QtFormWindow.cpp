#include "hosts/linux/form/QtFormWindow.h"

#include "hosts/linux/qt/QtProgramIcon.h"
#include "hosts/linux/qt/QtText.h"
#include "platform/WindowStyle.h"

#include <algorithm>

#include <QGuiApplication>
#include <QHideEvent>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>

namespace haloric {

namespace {

constexpr int kFrameAllowance = 60; // points that frames and panels need beside a window as high as the screen
constexpr std::uint32_t kFromPager = 2;

// The screen that shows most of it, else the primary one.
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

// Moved into `area`; what does not fit is beyond the right and the lower edge.
QPoint clamped(const QRect& frame, const QRect& area)
{
    return {std::max(std::min(frame.left(), area.right() + 1 - frame.width()), area.left()),
            std::max(std::min(frame.top(), area.bottom() + 1 - frame.height()), area.top())};
}

} // namespace

QtFormWindow::QtFormWindow(X11Connection& connection, const FormWindowConfiguration& configuration,
                           const FormModel& form)
    : m_connection(connection),
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
    setWindowIcon(QtProgramIcon::make());
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
    m_place = frame.topLeft();
    move(*m_place);
}

void QtFormWindow::makeKeyAndOrderFront()
{
    m_wantsFocus = true;
    if (QWidget::isVisible()) {
        setWindowState(windowState() & ~Qt::WindowMinimized);
        raise();
        activateWindow();
        askForFocus();
        return;
    }
    comeOntoScreen();
    QWidget::show();
    activateWindow();
    for (const Task& onAppear : m_view->onAppear())
        onAppear();
}

// Screens may have come, gone and changed while the window was hidden.
void QtFormWindow::comeOntoScreen()
{
    const QPoint place = m_place.value_or(frameGeometry().topLeft());
    const QScreen& screen = screenOf({place, frameGeometry().size()});
    fitInto(screen);
    if (!m_place)
        return;
    m_place = clamped({place, frameGeometry().size()}, screen.availableGeometry());
    move(*m_place);
}

void QtFormWindow::hideEvent(QHideEvent* event)
{
    if (!event->spontaneous())
        m_place = frameGeometry().topLeft();
    QWidget::hideEvent(event);
}

bool QtFormWindow::event(QEvent* event)
{
    if (event->type() == QEvent::WindowActivate)
        m_wantsFocus = false;
    const bool isHandled = QWidget::event(event);
    if (event->type() == QEvent::Paint && m_wantsFocus)
        askForFocus();
    return isHandled;
}

// Window managers keep programs from taking the focus that the user has not touched for a while, and this one may be
// called by a key that they know nothing of. What a panel asks for on the user's behalf is granted.
void QtFormWindow::askForFocus()
{
    m_wantsFocus = false;
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = static_cast<xcb_window_t>(winId());
    message.type = m_connection.atoms().activeWindow;
    message.data.data32[0] = kFromPager;
    xcb_send_event(m_connection.raw(), 0, m_connection.root(),
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char*>(&message));
    m_connection.flush();
}

} // namespace haloric
