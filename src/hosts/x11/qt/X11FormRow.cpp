#include "hosts/x11/qt/X11FormRow.h"

#include "hosts/x11/qt/X11ButtonRow.h"
#include "hosts/x11/qt/X11ColorWellRow.h"
#include "hosts/x11/qt/X11FormStyle.h"
#include "hosts/x11/qt/X11ListRow.h"
#include "hosts/x11/qt/X11MenuRow.h"
#include "hosts/x11/qt/X11PickerRow.h"
#include "hosts/x11/qt/X11SliderRow.h"
#include "hosts/x11/qt/X11Text.h"
#include "hosts/x11/qt/X11ToggleRow.h"

#include <QHBoxLayout>
#include <QLabel>

namespace haloric {

namespace {

constexpr int kSideMargin = 12; // points
constexpr int kEdgeMargin = 5;
constexpr int kHeight = 40;
constexpr int kGap = 12;

struct Maker {
    const FormRow& row;
    X11FormRow* operator()(const FormToggle&) const { return new X11ToggleRow(row); }
    X11FormRow* operator()(const FormSlider&) const { return new X11SliderRow(row); }
    X11FormRow* operator()(const FormColorWell&) const { return new X11ColorWellRow(row); }
    X11FormRow* operator()(const FormPicker&) const { return new X11PickerRow(row); }
    X11FormRow* operator()(const FormListRow&) const { return new X11ListRow(row); }
    X11FormRow* operator()(const FormMenu&) const { return new X11MenuRow(row); }
    X11FormRow* operator()(const FormButton&) const { return new X11ButtonRow(row); }
};

} // namespace

X11FormRow* X11FormRow::make(const FormRow& row)
{
    X11FormRow* made = std::visit(Maker{row}, row.control);
    made->show(row);
    return made;
}

X11FormRow::X11FormRow(const FormRow& row) : m_kind(row.control.index()), m_line(new QHBoxLayout(this))
{
    m_line->setContentsMargins(kSideMargin, kEdgeMargin, kSideMargin, kEdgeMargin);
    m_line->setSpacing(kGap);
    setMinimumHeight(kHeight);
}

QLabel& X11FormRow::addLabel()
{
    auto* label = new QLabel(this);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setMinimumWidth(1); // a word that is too long is cut off, else it pushes the controls out of sight
    m_line->addWidget(label, 1);
    return *label;
}

void X11FormRow::addControl(QWidget& control, const FormRow& row)
{
    m_control = &control;
    control.setStyle(&X11FormStyle::shared());
    control.setObjectName(qtText(row.id));
    m_line->addWidget(&control, 0, Qt::AlignRight | Qt::AlignVCenter);
}

void X11FormRow::addControlAlone(QWidget& control, const FormRow& row)
{
    addControl(control, row);
    m_line->addStretch(1);
}

void X11FormRow::makeCompact()
{
    m_line->setContentsMargins(0, 0, 0, 0);
    setMinimumHeight(0);
}

} // namespace haloric
