#include "hosts/linux/form/QtFormView.h"

#include "hosts/linux/form/QtFormStyle.h"
#include "hosts/linux/qt/QtText.h"

#include <QLabel>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

namespace haloric {

namespace {

constexpr int kMargin = 18; // points
constexpr int kSectionGap = 18;
constexpr int kButtonGap = 8;
constexpr int kButtonMargin = 12;
constexpr int kLine = 1;

} // namespace

QtFormView::QtFormView(QWidget* parent)
    : QWidget(parent),
      m_scroll(new QScrollArea(this)),
      m_content(new QWidget),
      m_column(new QVBoxLayout(m_content)),
      m_notice(new QLabel(this)),
      m_line(new QtFlowLayout),
      m_sections(*m_column),
      m_buttons(*m_line)
{
    m_column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    m_column->setSpacing(kSectionGap);
    m_column->addStretch(1);
    m_line->setContentsMargins(kMargin, kButtonMargin, kMargin, kButtonMargin);
    m_line->setSpacing(kButtonGap);

    m_scroll->setFrameShape(QFrame::NoFrame);
    m_scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_scroll->setWidgetResizable(true);
    m_scroll->setFocusPolicy(Qt::NoFocus);
    m_scroll->setWidget(m_content);
    m_scroll->verticalScrollBar()->setStyle(&QtFormStyle::shared());

    m_notice->setObjectName("notice");
    m_notice->setTextFormat(Qt::PlainText);
    m_notice->setWordWrap(true);
    m_notice->setContentsMargins(kMargin, kButtonMargin, kMargin, 0);
    m_notice->hide();

    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->setSpacing(0);
    all->addWidget(m_scroll, 1);
    all->addWidget(m_notice);
    all->addLayout(m_line);
}

void QtFormView::show(const FormModel& form)
{
    m_sections.show(form.sections);
    m_buttons.show(form.buttons);
    m_buttons.forEach([](QtFormRow& row) { row.makeCompact(); });
    orderTabs();
    showNotice(form.notice);
}

void QtFormView::showNotice(const std::string& notice)
{
    const QString text = notice.empty() ? QString() : QString::fromUtf8("⚠ ") + qtText(notice);
    if (text == m_notice->text())
        return;
    m_notice->setText(text);
    m_notice->setVisible(!text.isEmpty());
    layout()->activate();
    update(); // the line moves
}

// Tab moves from top to bottom, whatever the order in which the widgets were made.
void QtFormView::orderTabs()
{
    QWidget* before = nullptr;
    const auto append = [&before](const QtFormRow& row) {
        if (before)
            setTabOrder(before, &row.control());
        before = &row.control();
    };
    m_sections.forEach([&append](const QtFormSection& section) { section.rows().forEach(append); });
    m_buttons.forEach(append);
}

// A line separates the scrolled sections from the buttons.
void QtFormView::paintEvent(QPaintEvent*)
{
    QPainter(this).fillRect(QRect(0, m_scroll->geometry().bottom() + 1, width(), kLine), QtFormColors(palette()).line);
}

std::vector<Task> QtFormView::onAppear() const
{
    std::vector<Task> tasks;
    m_sections.forEach([&tasks](const QtFormSection& section) {
        if (section.onAppear())
            tasks.push_back(section.onAppear());
    });
    return tasks;
}

} // namespace haloric
