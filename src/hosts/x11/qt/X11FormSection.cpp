#include "hosts/x11/qt/X11FormSection.h"

#include "hosts/x11/qt/X11FormColors.h"
#include "hosts/x11/qt/X11Text.h"

#include <QEvent>
#include <QLabel>
#include <QVBoxLayout>

namespace haloric {

namespace {

constexpr int kGap = 6;          // points, between title, card and footer
constexpr int kTextInset = 12;   // as the text of the rows
constexpr double kSmaller = 0.9; // the footer's font against the others

QLabel* makeText(QWidget* parent)
{
    auto* label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setContentsMargins(kTextInset, 0, kTextInset, 0);
    return label;
}

} // namespace

X11FormSection* X11FormSection::make(const FormSection& section)
{
    auto* made = new X11FormSection;
    made->show(section);
    return made;
}

X11FormSection::X11FormSection()
    : m_title(makeText(this)),
      m_card(new X11FormCard(this)),
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

void X11FormSection::colorLabels()
{
    QPalette muted = palette();
    muted.setColor(QPalette::WindowText, X11FormColors(palette()).mutedText);
    m_footer->setPalette(muted);
}

void X11FormSection::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        colorLabels();
}

void X11FormSection::show(const FormSection& section)
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
