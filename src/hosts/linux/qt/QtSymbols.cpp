#include "hosts/linux/qt/QtSymbols.h"

#include <QPainter>
#include <QPixmap>

namespace haloric {

namespace {

constexpr double kUnits = 16; // of the drawings
constexpr int kSizes[] = {16, 18, 20, 22, 24, 32, 36, 48, 64};

using Drawing = void (*)(QPainter&, const QColor&);

void drawApplication(QPainter& painter, const QColor& color)
{
    painter.setPen(QPen(color, 1.2));
    painter.drawRoundedRect(QRectF(1.6, 1.6, 12.8, 12.8), 3.2, 3.2);
}

void drawMinusCircle(QPainter& painter, const QColor& color)
{
    painter.setPen(QPen(color, 1.2, Qt::SolidLine, Qt::RoundCap));
    painter.drawEllipse(QRectF(1.6, 1.6, 12.8, 12.8));
    painter.drawLine(QPointF(5, 8), QPointF(11, 8));
}

QIcon drawn(Drawing draw, const QColor& color)
{
    QIcon icon;
    for (const int size : kSizes) {
        QPixmap pixmap(size, size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(size / kUnits, size / kUnits);
        draw(painter, color);
        painter.end();
        icon.addPixmap(pixmap);
    }
    return icon;
}

} // namespace

QIcon QtSymbols::icon(std::string_view name, const QPalette& palette)
{
    const QColor color = palette.color(QPalette::WindowText);
    if (name == "app")
        return QIcon::fromTheme("application-x-executable", drawn(drawApplication, color));
    if (name == "minus.circle")
        return drawn(drawMinusCircle, color);
    return {};
}

} // namespace haloric
