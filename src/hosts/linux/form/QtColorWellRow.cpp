#include "hosts/linux/form/QtColorWellRow.h"

#include "hosts/linux/qt/QtText.h"

#include <QLabel>

namespace haloric {

QtColorWellRow::QtColorWellRow(const FormRow& row) : QtFormRow(row), m_label(addLabel()), m_well(new QtColorWell(this))
{
    addControl(*m_well, row);
    m_well->onChosen = [this](const Color& color) {
        if (const auto set = m_set)
            set(color);
    };
}

void QtColorWellRow::show(const FormRow& row)
{
    const auto& well = std::get<FormColorWell>(row.control);
    m_set = well.set;
    m_label.setText(qtText(well.label));
    m_label.setEnabled(well.isEnabled);
    m_well->setTitle(qtText(well.label));
    m_well->setAccessibleName(qtText(well.label));
    m_well->setColor(well.color);
    m_well->setEnabled(well.isEnabled);
}

} // namespace haloric
