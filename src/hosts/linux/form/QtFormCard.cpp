#include "hosts/linux/form/QtFormCard.h"

#include "hosts/linux/qt/QtFormColors.h"

#include <QPainter>
#include <QVBoxLayout>

namespace haloric {

namespace {

constexpr double kRadius = 10; // points
constexpr int kLineInset = 12;
constexpr int kEdge = 1;

} // namespace

QtFormCard::QtFormCard(QWidget* parent) : QWidget(parent), m_rows(new QVBoxLayout(this))
{
    m_rows->setContentsMargins(0, kEdge, 0, kEdge);
    m_rows->setSpacing(kEdge);
}

void QtFormCard::paintEvent(QPaintEvent*)
{
    const QtFormColors colors(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colors.line, kEdge));
    painter.setBrush(colors.card);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kRadius, kRadius);
    painter.setRenderHint(QPainter::Antialiasing, false);
    for (int index = 1; index < m_rows->count(); ++index) {
        const int top = m_rows->itemAt(index)->geometry().top() - kEdge;
        painter.fillRect(QRect(kLineInset, top, width() - 2 * kLineInset, kEdge), colors.line);
    }
}

} // namespace haloric
