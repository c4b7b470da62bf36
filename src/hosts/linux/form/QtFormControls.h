// The controls of the form that paint themselves: slider, switch and colour well. Main thread.
#pragma once

#include "foundation/Color.h"

#include <functional>

#include <QCheckBox>
#include <QPointer>
#include <QPushButton>
#include <QSlider>

class QColorDialog;

namespace haloric {

// A horizontal slider whose knob moves to where the pointer is pressed. The wheel moves it only while it has the
// keyboard focus; otherwise the wheel scrolls the form.
class QtSlider final : public QSlider {
public:
    explicit QtSlider(QWidget* parent);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    int positionAt(double x) const;
};

// A check box that looks like a switch.
class QtSwitch final : public QCheckBox {
public:
    using QCheckBox::QCheckBox;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    bool hitButton(const QPoint& position) const override { return rect().contains(position); }
    void paintEvent(QPaintEvent* event) override;
};

// A button that shows a colour and opens a dialog for choosing another. The dialog has neither opacity nor buttons: it
// reports each colour at once, follows colours that are set elsewhere, and closes with its window.
class QtColorWell final : public QPushButton {
public:
    explicit QtColorWell(QWidget* parent);
    ~QtColorWell() override;

    // Called for each colour that the dialog reports.
    std::function<void(const Color&)> onChosen;

    void setColor(const Color& color);
    void setTitle(const QString& title); // of the dialog

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void openDialog();
    void choose(const Color& color);

    Color m_color;
    QString m_title;
    QPointer<QColorDialog> m_dialog;
};

} // namespace haloric
