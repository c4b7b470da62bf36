// Ordinary windows that show a form as Qt widgets. Escape and Control+W close a window. Closing hides it; it reopens at
// its old position, moved onto a screen if necessary. It is never higher than its screen; the form scrolls then. Main
// thread.
#pragma once

#include "hosts/linux/form/QtFormView.h"
#include "hosts/linux/qt/QtForeground.h"
#include "platform/FormWindows.h"

#include <optional>

#include <QPoint>
#include <QSize>
#include <QWidget>

namespace haloric {

class QtFormWindow final : public QWidget, public FormWindow {
public:
    // `foreground` outlives it.
    QtFormWindow(QtForeground& foreground, const FormWindowConfiguration& configuration, const FormModel& form);
    ~QtFormWindow() override;

    // FormWindow
    void setForm(const FormModel& form) override;
    void center() override;
    void makeKeyAndOrderFront() override;
    bool isVisible() const override { return QWidget::isVisible(); }

protected:
    void hideEvent(QHideEvent* event) override;
    bool event(QEvent* event) override;

private:
    void fitInto(const QScreen& screen);
    void moveOntoScreen();
    void notifySections();

    QtForeground& m_foreground;
    QSize m_contentSize; // where the screen is high enough
    bool m_isResizable;
    QtFormView* m_view;
    std::optional<QPoint> m_position; // of the frame, while hidden
    bool m_isAppearing = false;       // until it has the focus for the first time
};

class QtFormWindows final : public FormWindows {
public:
    // Requires QtApplication. `foreground` outlives the windows.
    explicit QtFormWindows(QtForeground& foreground) : m_foreground(foreground) {}

    std::unique_ptr<FormWindow> make(const FormWindowConfiguration& configuration, const FormModel& form) override;

private:
    QtForeground& m_foreground;
};

} // namespace haloric
