// The ring around a control that has the keyboard, where the control paints itself. Main thread.
#pragma once

#include "hosts/linux/qt/QtFormColors.h"

#include <QPainter>
#include <QRectF>
#include <QWidget>

namespace haloric {

struct QtFocusRing {
    static constexpr double kWidth = 2;
    static constexpr double kGap = 1;
    static constexpr double kMargin = kWidth + kGap; // that the control keeps free around itself

    // Whoever uses the pointer knows where the control is.
    static bool isWanted(const QWidget& control)
    {
        return control.hasFocus() && control.window()->testAttribute(Qt::WA_KeyboardFocusChange);
    }

    // Around `shape`, whose corners have that radius.
    static void paint(QPainter& painter, const QRectF& shape, double radius, const QtFormColors& colors)
    {
        const double distance = kGap + kWidth / 2;
        QColor color = colors.accent;
        color.setAlphaF(0.55f);
        painter.setPen(QPen(color, kWidth));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(shape.adjusted(-distance, -distance, distance, distance), radius + distance,
                                radius + distance);
    }
};

} // namespace haloric
