#include "hosts/x11/qt/X11FormView.h"

#include "hosts/x11/qt/X11FormColors.h"
#include "hosts/x11/qt/X11FormStyle.h"

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

X11FormView::X11FormView(QWidget* parent)
    : QWidget(parent),
      m_scroll(new QScrollArea(this)),
      m_content(new QWidget),
      m_column(new QVBoxLayout(m_content)),
      m_line(new X11FlowLayout),
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
    m_scroll->verticalScrollBar()->setStyle(&X11FormStyle::shared());

    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->setSpacing(0);
    all->addWidget(m_scroll, 1);
    all->addLayout(m_line);
}

void X11FormView::show(const FormModel& form)
{
    m_sections.show(form.sections);
    m_buttons.show(form.buttons);
    m_buttons.forEach([](X11FormRow& row) { row.makeCompact(); });
    orderTabs();
}

// From the top to the bottom, whenever the widgets were made.
void X11FormView::orderTabs()
{
    QWidget* before = nullptr;
    const auto append = [&before](const X11FormRow& row) {
        if (before)
            setTabOrder(before, &row.control());
        before = &row.control();
    };
    m_sections.forEach([&append](const X11FormSection& section) { section.rows().forEach(append); });
    m_buttons.forEach(append);
}

// What scrolls ends at a line.
void X11FormView::paintEvent(QPaintEvent*)
{
    QPainter(this).fillRect(QRect(0, m_scroll->geometry().bottom() + 1, width(), kLine), X11FormColors(palette()).line);
}

std::vector<Task> X11FormView::onAppear() const
{
    std::vector<Task> tasks;
    m_sections.forEach([&tasks](const X11FormSection& section) {
        if (section.onAppear())
            tasks.push_back(section.onAppear());
    });
    return tasks;
}

} // namespace haloric
