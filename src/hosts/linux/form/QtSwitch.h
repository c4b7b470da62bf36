// A check box that looks like a switch. Main thread.
#pragma once

#include <QCheckBox>

namespace haloric {

class QtSwitch final : public QCheckBox {
public:
    using QCheckBox::QCheckBox;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    bool hitButton(const QPoint& position) const override { return rect().contains(position); }
    void paintEvent(QPaintEvent* event) override;
};

} // namespace haloric
