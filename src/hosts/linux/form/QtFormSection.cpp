#include "hosts/linux/form/QtFormSection.h"

#include "hosts/linux/form/QtFormStyle.h"
#include "hosts/linux/qt/QtText.h"

#include <QEvent>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

namespace haloric {

namespace {

constexpr int kGap = 6;            // points, between title, card and footer
constexpr int kTextInset = 12;     // the same as the text of the rows
constexpr double kSmaller = 0.9;   // size of the footer's font relative to the others
constexpr double kCardRadius = 10; // points
constexpr int kLineInset = 12;
constexpr int kEdge = 1;

QLabel* makeText(QWidget* parent)
{
    auto* label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setContentsMargins(kTextInset, 0, kTextInset, 0);
    return label;
}

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
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kCardRadius, kCardRadius);
    painter.setRenderHint(QPainter::Antialiasing, false);
    for (int index = 1; index < m_rows->count(); ++index) {
        const int top = m_rows->itemAt(index)->geometry().top() - kEdge;
        painter.fillRect(QRect(kLineInset, top, width() - 2 * kLineInset, kEdge), colors.line);
    }
}

QtFormSection* QtFormSection::make(const FormSection& section)
{
    auto* made = new QtFormSection;
    made->show(section);
    return made;
}

QtFormSection::QtFormSection()
    : m_title(makeText(this)),
      m_card(new QtFormCard(this)),
      m_footer(makeText(this)),
      m_rows(m_card->rows())
{
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(kGap);
    column->addWidget(m_title);
    column->addWidget(m_card);
    column->addWidget(m_footer);
    QFont bold = m_title->font();
    bold.setBold(true);
    m_title->setFont(bold);
    QFont small = m_footer->font();
    small.setPointSizeF(small.pointSizeF() * kSmaller);
    m_footer->setFont(small);
    colorLabels();
}

void QtFormSection::colorLabels()
{
    QPalette muted = palette();
    muted.setColor(QPalette::WindowText, QtFormColors(palette()).mutedText);
    m_footer->setPalette(muted);
}

void QtFormSection::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        colorLabels();
}

void QtFormSection::show(const FormSection& section)
{
    m_onAppear = section.onAppear;
    m_title->setText(qtText(section.title));
    m_title->setVisible(!section.title.empty());
    m_footer->setText(qtText(section.footer));
    m_footer->setVisible(!section.footer.empty());
    if (m_rows.show(section.rows))
        m_card->update();
    m_card->setAccessibleName(qtText(section.title));
}

} // namespace haloric
