#include "hosts/linux/form/QtFormRow.h"

#include "hosts/linux/form/QtButtonRow.h"
#include "hosts/linux/form/QtColorWellRow.h"
#include "hosts/linux/form/QtFormStyle.h"
#include "hosts/linux/form/QtListRow.h"
#include "hosts/linux/form/QtMenuRow.h"
#include "hosts/linux/form/QtPickerRow.h"
#include "hosts/linux/form/QtSliderRow.h"
#include "hosts/linux/form/QtToggleRow.h"
#include "hosts/linux/qt/QtText.h"

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
    QtFormRow* operator()(const FormToggle&) const { return new QtToggleRow(row); }
    QtFormRow* operator()(const FormSlider&) const { return new QtSliderRow(row); }
    QtFormRow* operator()(const FormColorWell&) const { return new QtColorWellRow(row); }
    QtFormRow* operator()(const FormPicker&) const { return new QtPickerRow(row); }
    QtFormRow* operator()(const FormListRow&) const { return new QtListRow(row); }
    QtFormRow* operator()(const FormMenu&) const { return new QtMenuRow(row); }
    QtFormRow* operator()(const FormButton&) const { return new QtButtonRow(row); }
};

} // namespace

QtFormRow* QtFormRow::make(const FormRow& row)
{
    QtFormRow* made = std::visit(Maker{row}, row.control);
    made->show(row);
    return made;
}

QtFormRow::QtFormRow(const FormRow& row) : m_kind(row.control.index()), m_line(new QHBoxLayout(this))
{
    m_line->setContentsMargins(kSideMargin, kEdgeMargin, kSideMargin, kEdgeMargin);
    m_line->setSpacing(kGap);
    setMinimumHeight(kHeight);
}

QLabel& QtFormRow::addLabel()
{
    auto* label = new QLabel(this);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setMinimumWidth(1); // a word that is too long is cut off, else it pushes the controls out of sight
    m_line->addWidget(label, 1);
    return *label;
}

void QtFormRow::addControl(QWidget& control, const FormRow& row)
{
    m_control = &control;
    control.setStyle(&QtFormStyle::shared());
    control.setObjectName(qtText(row.id));
    m_line->addWidget(&control, 0, Qt::AlignRight | Qt::AlignVCenter);
}

void QtFormRow::addControlAlone(QWidget& control, const FormRow& row)
{
    addControl(control, row);
    m_line->addStretch(1);
}

void QtFormRow::makeCompact()
{
    m_line->setContentsMargins(0, 0, 0, 0);
    setMinimumHeight(0);
}

} // namespace haloric
