#include "hosts/linux/qt/QtProgramIcon.h"

#include "hosts/linux/qt/QtApplication.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPixmap>

namespace haloric {

namespace {

constexpr double kCanvas = 64; // the drawing's own units

// A dark desktop with a window that glows.
void draw(QPainter& painter)
{
    painter.setPen(Qt::NoPen);
    QLinearGradient desktop(0, 0, 0, kCanvas);
    desktop.setColorAt(0, QColor(58, 66, 92));
    desktop.setColorAt(1, QColor(24, 28, 44));
    painter.setBrush(desktop);
    painter.drawRoundedRect(QRectF(3, 3, 58, 58), 14, 14);

    const QColor accent(10, 133, 255);
    const QRectF window(17, 20, 30, 24);
    painter.setBrush(Qt::NoBrush);
    for (int ring = 8; ring >= 1; --ring) {
        QColor glow = accent;
        glow.setAlpha(14 + 8 * (8 - ring));
        painter.setPen(QPen(glow, 2.4));
        painter.drawRoundedRect(window.adjusted(-ring, -ring, ring, ring), 5 + ring, 5 + ring);
    }
    painter.setPen(QPen(accent, 3));
    painter.setBrush(QColor(245, 247, 250));
    painter.drawRoundedRect(window, 5, 5);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(200, 208, 220));
    painter.drawRoundedRect(QRectF(20, 23, 24, 4), 2, 2);
}

} // namespace

QIcon QtProgramIcon::make()
{
    QIcon drawn;
    for (const int size : {16, 22, 24, 32, 48, 64, 128, 256}) {
        QPixmap pixmap(size, size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(size / kCanvas, size / kCanvas);
        draw(painter);
        drawn.addPixmap(pixmap);
    }
    return QIcon::fromTheme(QtApplication::kIdentifier, drawn);
}

} // namespace haloric
