// Ordinary windows that show a form as Qt widgets. Escape and Control+W close a window. Closing hides it; it reopens at
// its old position, moved onto a screen if necessary. It is never higher than its screen; the form scrolls then. Main
// thread.
#pragma once

#include "hosts/linux/form/QtFormView.h"
#include "platform/FormWindows.h"

#include <functional>
#include <optional>

#include <QPoint>
#include <QSize>
#include <QWidget>

namespace haloric {

// Asks the window manager to focus one of the program's windows, given by its native id, on behalf of the user.
using QtFocusRequest = std::function<void(WId window)>;

class QtFormWindow final : public QWidget, public FormWindow {
public:
    QtFormWindow(QtFocusRequest requestFocus, const FormWindowConfiguration& configuration, const FormModel& form);
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
    void askForFocus();

    QtFocusRequest m_requestFocus;
    QSize m_contentSize; // where the screen is high enough
    bool m_isResizable;
    QtFormView* m_view;
    std::optional<QPoint> m_position; // of the frame, while hidden
    bool m_wantsFocus = false;
};

class QtFormWindows final : public FormWindows {
public:
    // Requires QtApplication.
    explicit QtFormWindows(QtFocusRequest requestFocus) : m_requestFocus(std::move(requestFocus)) {}

    std::unique_ptr<FormWindow> make(const FormWindowConfiguration& configuration, const FormModel& form) override;

private:
    QtFocusRequest m_requestFocus;
};

} // namespace haloric
