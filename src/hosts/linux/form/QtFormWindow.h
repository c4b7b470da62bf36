// A window with a form. Escape and Control+W close it; closed, it is hidden and keeps its place, as far as the screens
// that there are when it is shown again let it. It is never higher than its screen; the form scrolls then. Main thread.
#pragma once

#include "hosts/linux/form/QtFormView.h"
#include "hosts/x11/server/X11Connection.h"
#include "platform/FormWindows.h"

#include <optional>

#include <QPoint>
#include <QSize>
#include <QWidget>

namespace haloric {

class QtFormWindow final : public QWidget, public FormWindow {
public:
    // The connection outlives it.
    QtFormWindow(X11Connection& connection, const FormWindowConfiguration& configuration, const FormModel& form);
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
    void comeOntoScreen();
    void askForFocus();

    X11Connection& m_connection;
    QSize m_contentSize; // where the screen is high enough
    bool m_isResizable;
    QtFormView* m_view;
    std::optional<QPoint> m_place; // of the frame, while hidden
    bool m_wantsFocus = false;
};

} // namespace haloric
