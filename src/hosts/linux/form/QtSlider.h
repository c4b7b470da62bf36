// A horizontal slider whose knob goes where the pointer is pressed. The wheel moves it only while it has the keyboard:
// otherwise the form scrolls. Main thread.
#pragma once

#include <QSlider>

namespace haloric {

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

} // namespace haloric
